#include "dscp/dscLog.hpp"

#include <cstdarg>
#include <cstdint>
#include <cstdio>

KvuDiagHandle dscDiagHandle_g;

namespace
{

// The numbers that the diagnostics library expects from this module besides the level.
constexpr int destination = 2;
constexpr int detail = -1;

void addEntry(unsigned long level, const char* text)
{
    KvuDiagAddLogEntry(dscDiagHandle_g, destination, static_cast<std::uint16_t>(level), detail, text);
}

__attribute__((format(printf, 2, 0))) void addFormattedEntry(unsigned long level, const char* format,
                                                             va_list arguments)
{
    char text[256];
    std::vsnprintf(text, sizeof text, format, arguments);
    addEntry(level, text);
}

} // namespace

void dscLogLevel(unsigned long /*unused*/, unsigned long level, const char* text)
{
    addEntry(level, text);
}

void dscLogFormat(unsigned long level, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    addFormattedEntry(level, format, arguments);
    va_end(arguments);
}

void dscLogLevelFormat(unsigned long /*unused*/, unsigned long level, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    addFormattedEntry(level, format, arguments);
    va_end(arguments);
}
