#include "ServiceTest.hpp"

#include "FlowTexts.hpp"
#include "MarkingService.hpp"
#include "dscp/dscLog.hpp"

#include <cstdarg>
#include <cstdio>

namespace dscptest
{

const char* const section = "HTS\\DSCPMarking";

std::string get(const std::string& key)
{
    return "KvuGetRegEntryUint16Ex 5 HTS\\DSCPMarking " + key;
}

std::string set(const std::string& key, unsigned int value)
{
    return "KvuSetRegEntryUint16Ex 5 HTS\\DSCPMarking " + key + " " + std::to_string(value);
}

std::string logged(unsigned int level, const std::string& text)
{
    return "KvuDiagAddLogEntry 2 " + std::to_string(level) + " -1 " + text;
}

std::string formatted(const char* format, ...)
{
    char buffer[1024];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    return buffer;
}

Lines written(const FlowTexts& flow, unsigned int value)
{
    return {get(flow.menuKey),
            set(flow.menuKey, value),
            set(flow.tosByteKey, value),
            logged(8, formatted(flow.bothWritten, value, value)),
            logged(8, formatted(flow.tosByteWritten, value)),
            logged(8, formatted(flow.menuWritten, value))};
}

Lines operator+(Lines first, const Lines& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

namespace
{

ORX_ALGServiceInstanceManager* goBackToDefaultManager()
{
    ORX_ALGService::ClearInstanceManager();
    return ORX_ALGService::getInstanceManager();
}

} // namespace

ServiceTest::ServiceTest() : defaultManager(goBackToDefaultManager())
{
    dscDiagHandle_g = world.diagHandle;
}

ServiceTest::~ServiceTest()
{
    fakes::releaseMarkingService();
}

} // namespace dscptest
