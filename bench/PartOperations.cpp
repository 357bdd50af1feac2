#include "Operations.hpp"

#include "config/CCOrxConfig.hpp"
#include "lanendpoint/ORX_LANEndpointAPI.hpp"
#include "lansetting/ResolverText.hpp"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace
{

using OpenWBEM::String;

/// On the disposable server a folder in memory, and the server's own.
std::string storePath(int entries)
{
    return "/run/bench-store-" + std::to_string(entries) + ".cfg";
}

/// The keys are written in an order that is neither sorted nor reversed.
void writeStoreFile(int entries)
{
    std::FILE* file = std::fopen(storePath(entries).c_str(), "we");
    if (file == nullptr)
        return;
    for (int i = 0; i < entries; ++i)
        std::fprintf(file, "key%05d   %d\n", i * 2473 % 8192, i);
    std::fclose(file);
}

Operation storeCycle(int entries)
{
    writeStoreFile(entries);
    return {"configuration store, " + std::to_string(entries) + " entries",
            [path = storePath(entries)] {
                CCOrxConfig store(path.c_str(), CCOrxConfig::BlankSeparated);
                store.SetValue("key00000", 1);
                store.Commit();
            },
            nullptr};
}

Operation maskCheck()
{
    // One of each kind: byte boundary, partial byte, refused.
    const auto endpoint = std::make_shared<ORX_LANEndpointAPI>(1);
    const std::vector<String> masks{"255.255.255.0", "255.255.240.0", "255.0.255.0"};
    return {"mask check, three masks",
            [endpoint, masks] {
                for (const String& mask : masks)
                    benchmark::DoNotOptimize(endpoint->isMaskValid(mask));
            },
            nullptr};
}

Operation resolverReading()
{
    const std::vector<String> lines{"search\tsite.example\n", "nameserver 10.0.0.2\n",
                                    "nameserver 10.0.0.3\n"};
    return {"resolver image, three lines",
            [lines, domain = String("site.example")] {
                ResolverText image;
                for (const String& line : lines)
                    benchmark::DoNotOptimize(image.addLine(line, domain));
            },
            nullptr};
}

Operation resolverEditing()
{
    return {"resolver image, domain and name server replaced",
            [contents = String("search\tsite.example\nnameserver 10.0.0.2\nnameserver 10.0.0.3\n"),
             domain = String("lab.example"), address = String("10.0.0.7")] {
                const String edited = withNameserver(withSearchDomain(contents, domain), address, 1);
                benchmark::DoNotOptimize(edited.c_str());
            },
            nullptr};
}

} // namespace

std::vector<Operation> partOperations()
{
    std::vector<Operation> operations{maskCheck(), resolverReading(), resolverEditing()};
    for (const int entries : {4, 64, 256, 4096})
        operations.push_back(storeCycle(entries));
    return operations;
}
