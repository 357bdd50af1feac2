#include "lansetting/ResolverFile.hpp"

#include "system/Stream.hpp"

#include <array>
#include <cstdio>

using OpenWBEM::String;

namespace
{
constexpr std::size_t lineBuffer = 1024; ///< 1023 characters and the NUL; a longer line arrives in pieces
}

ResolverText readResolverFile(const String& domainName)
{
    ResolverText text;
    const Stream file(std::fopen(resolveFile, "re"));
    if (!file)
        return text;
    std::array<char, lineBuffer> line;
    while (std::fgets(line.data(), static_cast<int>(line.size()), file.get()) &&
           text.addLine(line.data(), domainName)) {
    }
    return text;
}

bool writeResolverFile(const String& contents)
{
    const Stream file(std::fopen(resolveFile, "we"));
    if (!file)
        return false;
    std::fwrite(contents.c_str(), 1, contents.length(), file.get());
    return true;
}
