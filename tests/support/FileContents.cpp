// Reading and writing on the product's streams. Other streams, GoogleTest's above all, pass by.

#include "RealCalls.hpp"
#include "World.hpp"

#include <cerrno>
#include <cstdarg>
#include <cstdio>

using fakes::World;

extern "C" {
char* __wrap_fgets(char* line, int size, FILE* stream);
size_t __wrap_fwrite(const void* data, size_t size, size_t count, FILE* stream);
int __wrap_fprintf(FILE* stream, const char* format, ...) __attribute__((format(printf, 2, 3)));
}

namespace
{

/// Records the call if the stream is one of the product's; true when it is programmed to fail, with errno
/// set.
bool fails(const std::string& function, FILE* stream)
{
    World* world = World::current();
    if (!world || world->streams.count(stream) == 0)
        return false;
    const std::string line = function + " " + world->streams[stream];
    world->record(fakes::Content, line);
    const auto code = world->failureOf(function, line);
    if (code)
        errno = *code;
    return code.has_value();
}

} // namespace

char* __wrap_fgets(char* line, int size, FILE* stream)
{
    return fails("fgets", stream) ? nullptr : __real_fgets(line, size, stream);
}

size_t __wrap_fwrite(const void* data, size_t size, size_t count, FILE* stream)
{
    return fails("fwrite", stream) ? 0 : __real_fwrite(data, size, count, stream);
}

int __wrap_fprintf(FILE* stream, const char* format, ...)
{
    if (fails("fprintf", stream))
        return -1;
    va_list arguments;
    va_start(arguments, format);
    const int written = std::vfprintf(stream, format, arguments);
    va_end(arguments);
    return written;
}
