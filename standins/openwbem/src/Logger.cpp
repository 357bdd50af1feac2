#include "OW_IntrusiveReference.hpp"
#include "OW_LogMessage.hpp"
#include "OW_Logger.hpp"

namespace OpenWBEM
{

const String Logger::STR_NONE_CATEGORY("NONE");
const String Logger::STR_FATAL_CATEGORY("FATAL");
const String Logger::STR_ERROR_CATEGORY("ERROR");
const String Logger::STR_INFO_CATEGORY("INFO");
const String Logger::STR_DEBUG_CATEGORY("DEBUG");
const String Logger::STR_ALL_CATEGORY("ALL");
const String Logger::STR_DEFAULT_COMPONENT("none");

OW_DEFINE_NUMBERED_EXCEPTION(Logger, 24)

Logger::Logger(const ELogLevel logLevel) : Logger(STR_DEFAULT_COMPONENT, logLevel) {}

Logger::Logger(const String& defaultComponent, const ELogLevel logLevel)
    : m_logLevel(logLevel), m_defaultComponent(defaultComponent)
{
}

Logger::Logger(const Logger&) = default;

Logger& Logger::operator=(const Logger&) = default;

Logger::~Logger() = default;

void Logger::process(ELogLevel level, const String& category, const String& message, const char* filename,
                     int fileline, const char* methodname) const
{
    if (level <= m_logLevel) {
        logMessage(category, message, filename, fileline, methodname);
    }
}

void Logger::logFatalError(const String& message, const char* filename, int fileline,
                           const char* methodname) const
{
    process(E_FATAL_ERROR_LEVEL, STR_FATAL_CATEGORY, message, filename, fileline, methodname);
}

void Logger::logError(const String& message, const char* filename, int fileline, const char* methodname) const
{
    process(E_ERROR_LEVEL, STR_ERROR_CATEGORY, message, filename, fileline, methodname);
}

void Logger::logInfo(const String& message, const char* filename, int fileline, const char* methodname) const
{
    process(E_INFO_LEVEL, STR_INFO_CATEGORY, message, filename, fileline, methodname);
}

void Logger::logDebug(const String& message, const char* filename, int fileline, const char* methodname) const
{
    process(E_DEBUG_LEVEL, STR_DEBUG_CATEGORY, message, filename, fileline, methodname);
}

void Logger::logMessage(const String& category, const String& message) const
{
    logMessage(category, message, nullptr, -1, nullptr);
}

void Logger::logMessage(const String& component, const String& category, const String& message) const
{
    logMessage(component, category, message, nullptr, -1, nullptr);
}

void Logger::logMessage(const String& category, const String& message, const char* filename, int fileline,
                        const char* methodname) const
{
    logMessage(m_defaultComponent, category, message, filename, fileline, methodname);
}

void Logger::logMessage(const String& component, const String& category, const String& message,
                        const char* filename, int fileline, const char* methodname) const
{
    logMessage(LogMessage(component, category, message, filename, fileline, methodname));
}

void Logger::logMessage(const LogMessage& message) const
{
    doProcessLogMessage(message);
}

ELogLevel Logger::getLogLevel() const
{
    return m_logLevel;
}

void Logger::setLogLevel(ELogLevel logLevel)
{
    m_logLevel = logLevel;
}

void Logger::setLogLevel(const String& logLevel)
{
    if (logLevel.equalsIgnoreCase(STR_ALL_CATEGORY)) {
        setLogLevel(E_ALL_LEVEL);
    } else if (logLevel.equalsIgnoreCase(STR_DEBUG_CATEGORY)) {
        setLogLevel(E_DEBUG_LEVEL);
    } else if (logLevel.equalsIgnoreCase(STR_INFO_CATEGORY)) {
        setLogLevel(E_INFO_LEVEL);
    } else if (logLevel.equalsIgnoreCase(STR_ERROR_CATEGORY)) {
        setLogLevel(E_ERROR_LEVEL);
    } else if (logLevel.equalsIgnoreCase(STR_NONE_CATEGORY)) {
        setLogLevel(E_NONE_LEVEL);
    } else {
        setLogLevel(E_FATAL_ERROR_LEVEL);
    }
}

void Logger::setDefaultComponent(const String& component)
{
    m_defaultComponent = component;
}

String Logger::getDefaultComponent() const
{
    return m_defaultComponent;
}

bool Logger::categoryIsEnabled(const String&) const
{
    return true;
}

LoggerRef Logger::clone() const
{
    return doClone();
}

} // namespace OpenWBEM
