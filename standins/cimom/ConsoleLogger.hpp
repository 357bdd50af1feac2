#pragma once

#include "OW_Logger.hpp"

namespace cimom
{

// Writes to standard error, one line a message: "ERROR text".
class ConsoleLogger : public OpenWBEM::Logger
{
  public:
    explicit ConsoleLogger(OpenWBEM::ELogLevel level) : Logger(OpenWBEM::String("kv-cimom"), level) {}

  protected:
    void doProcessLogMessage(const OpenWBEM::LogMessage& message) const override;
    OpenWBEM::LoggerRef doClone() const override;
};

} // namespace cimom
