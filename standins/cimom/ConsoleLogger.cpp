#include "ConsoleLogger.hpp"

#include "OW_LogMessage.hpp"
#include <cstdio>
#include <string>

namespace cimom
{

void ConsoleLogger::doProcessLogMessage(const OpenWBEM::LogMessage& message) const
{
    // One write: lines of two threads do not mix.
    const std::string line = std::string(message.category.c_str()) + " " + message.message.c_str() + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

OpenWBEM::LoggerRef ConsoleLogger::doClone() const
{
    return new ConsoleLogger(*this);
}

} // namespace cimom
