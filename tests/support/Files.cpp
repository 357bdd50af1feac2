// Files by absolute path, mapped into the world's tree in memory.

#include "MemoryFiles.hpp"
#include "RealCalls.hpp"
#include "World.hpp"

#include <fcntl.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

using fakes::World;

extern "C" {
int __wrap_open(const char* path, int flags, ...);
FILE* __wrap_fopen(const char* path, const char* mode);
int __wrap_fclose(FILE* stream);
int __wrap_rename(const char* from, const char* to);
int __wrap_remove(const char* path);
}

namespace
{

/// Records the call; true when it is programmed to fail, with errno set.
bool fails(World& world, const std::string& function, const std::string& line)
{
    world.record(fakes::File, line);
    const auto code = world.failureOf(function, line);
    if (code)
        errno = *code;
    return code.has_value();
}

/// "r" or "w". glibc's close-on-exec flag is left out: it is the product's choice and not its behaviour.
std::string plainMode(const char* mode)
{
    std::string plain(mode);
    const auto flag = plain.find('e');
    if (flag != std::string::npos)
        plain.erase(flag, 1);
    return plain;
}

} // namespace

int __wrap_open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    World* world = World::current();
    if (!world)
        return __real_open(path, flags, mode);

    if (fails(*world, "open", std::string("open ") + path))
        return -1;
    if (std::string(path) != "/dev/kv_netfilter" || (flags & O_ACCMODE) != O_RDWR) {
        world->problem(std::string("unforeseen open of ") + path);
        errno = ENOENT;
        return -1;
    }
    if (!world->packetFilterPresent) {
        errno = ENOENT;
        return -1;
    }
    const int fd = __real_open("/dev/null", O_RDWR | O_CLOEXEC);
    world->descriptors[fd] = path;
    return fd;
}

FILE* __wrap_fopen(const char* path, const char* mode)
{
    World* world = World::current();
    if (!world)
        return __real_fopen(path, mode);
    const std::string line = std::string("fopen ") + path + " " + plainMode(mode);
    if (fails(*world, "fopen", line))
        return nullptr;
    FILE* stream = fakes::memory::open(world->real(path), plainMode(mode));
    if (stream)
        world->streams[stream] = path;
    return stream;
}

// A programmed failure stands for one in writing out the rest. The stream is closed all the same.
int __wrap_fclose(FILE* stream)
{
    World* world = World::current();
    if (!world)
        return __real_fclose(stream);
    const auto found = world->streams.find(stream);
    if (found == world->streams.end()) {
        world->problem("fclose of a stream that is not open");
        return __real_fclose(stream);
    }
    const bool failing = fails(*world, "fclose", "fclose " + found->second);
    world->streams.erase(found);
    const int result = __real_fclose(stream);
    return failing ? EOF : result;
}

int __wrap_rename(const char* from, const char* to)
{
    World* world = World::current();
    if (!world)
        return __real_rename(from, to);
    if (fails(*world, "rename", std::string("rename ") + from + " " + to))
        return -1;
    return fakes::memory::rename(world->real(from), world->real(to));
}

int __wrap_remove(const char* path)
{
    World* world = World::current();
    if (!world)
        return __real_remove(path);
    if (fails(*world, "remove", std::string("remove ") + path))
        return -1;
    return fakes::memory::remove(world->real(path));
}
