// Host name, system log, waiting and perror.

#include "RealCalls.hpp"
#include "World.hpp"

#include <netdb.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

using fakes::World;

extern "C" {
int __wrap_gethostname(char* name, size_t length);
hostent* __wrap_gethostbyname(const char* name);
unsigned int __wrap_sleep(unsigned int seconds);
void __wrap_syslog(int priority, const char* format, ...) __attribute__((format(printf, 2, 3)));
void __wrap_perror(const char* text);
}

int __wrap_gethostname(char* name, size_t length)
{
    World* world = World::current();
    if (!world)
        return __real_gethostname(name, length);
    const std::string line = "gethostname " + std::to_string(length);
    world->record(fakes::Host, line);
    if (const auto code = world->failureOf("gethostname", line)) {
        errno = *code;
        return -1;
    }
    std::strncpy(name, world->hostName.c_str(), length);
    return 0;
}

hostent* __wrap_gethostbyname(const char* name)
{
    World* world = World::current();
    if (!world)
        return __real_gethostbyname(name);
    const std::string line = std::string("gethostbyname ") + name;
    world->record(fakes::Host, line);
    if (const auto code = world->failureOf("gethostbyname", line)) {
        h_errno = *code;
        return nullptr;
    }
    if (!world->officialHostName) {
        h_errno = HOST_NOT_FOUND;
        return nullptr;
    }
    static hostent answer;
    answer.h_name = world->officialHostName->data();
    return &answer;
}

unsigned int __wrap_sleep(unsigned int seconds)
{
    World* world = World::current();
    if (!world)
        return __real_sleep(seconds);
    world->record(fakes::System, "sleep " + std::to_string(seconds));
    return 0;
}

void __wrap_syslog(int priority, const char* format, ...)
{
    char text[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    if (World* world = World::current())
        world->record(fakes::System, "syslog " + std::to_string(priority) + " " + text);
}

void __wrap_perror(const char* text)
{
    const int code = errno;
    if (World* world = World::current())
        world->record(fakes::System, std::string("perror ") + text + ": " + std::strerror(code));
}
