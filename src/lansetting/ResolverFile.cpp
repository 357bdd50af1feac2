#include "lansetting/ResolverFile.hpp"

#include "system/Stream.hpp"

#include <array>
#include <cstdio>

using OpenWBEM::String;

namespace
{
constexpr std::size_t lineBuffer = 1024; ///< 1023 characters and the NUL; a longer line arrives in pieces
}

ResolverImage readResolverFile(const String& domainName)
{
    ResolverImage image;
    const Stream file(std::fopen(resolveFile, "re"));
    if (!file)
        return image;
    std::array<char, lineBuffer> line;
    while (std::fgets(line.data(), static_cast<int>(line.size()), file.get()) &&
           image.addLine(line.data(), domainName)) {
    }
    return image;
}

bool writeResolverFile(const String& contents)
{
    const Stream file(std::fopen(resolveFile, "we"));
    if (!file)
        return false;
    std::fwrite(contents.c_str(), 1, contents.length(), file.get());
    return true;
}
