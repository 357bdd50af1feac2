#ifndef OW_LOGGER_HPP_
#define OW_LOGGER_HPP_

#include "OW_CommonFwd.hpp"
#include "OW_Exception.hpp"
#include "OW_IntrusiveCountableBase.hpp"
#include "OW_LogLevel.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// A logger that cannot be made.
OW_DECLARE_EXCEPTION(Logger)

// The object manager's log. A host derives from it and writes what doProcessLogMessage gets.
class Logger : public IntrusiveCountableBase
{
  public:
    static const String STR_NONE_CATEGORY;
    static const String STR_FATAL_CATEGORY;
    static const String STR_ERROR_CATEGORY;
    static const String STR_INFO_CATEGORY;
    static const String STR_DEBUG_CATEGORY;
    static const String STR_ALL_CATEGORY;
    static const String STR_DEFAULT_COMPONENT;

    virtual ~Logger();

    void logFatalError(const String& message, const char* filename = 0, int fileline = -1,
                       const char* methodname = 0) const;
    void logError(const String& message, const char* filename = 0, int fileline = -1,
                  const char* methodname = 0) const;
    void logInfo(const String& message, const char* filename = 0, int fileline = -1,
                 const char* methodname = 0) const;
    void logDebug(const String& message, const char* filename = 0, int fileline = -1,
                  const char* methodname = 0) const;
    // Whatever the level is, to the output with it.
    void logMessage(const String& category, const String& message) const;
    void logMessage(const String& component, const String& category, const String& message) const;
    void logMessage(const String& category, const String& message, const char* filename, int fileline,
                    const char* methodname) const;
    void logMessage(const String& component, const String& category, const String& message,
                    const char* filename, int fileline, const char* methodname) const;
    void logMessage(const LogMessage& message) const;

    ELogLevel getLogLevel() const;
    void setLogLevel(ELogLevel logLevel);
    void
    setLogLevel(const String& logLevel); // all, debug, info, error, none; anything else is fatal errors only
    void setDefaultComponent(const String& component);
    String getDefaultComponent() const;
    bool categoryIsEnabled(const String& category) const; // true
    LoggerRef clone() const;

  protected:
    explicit Logger(const ELogLevel logLevel) OW_DEPRECATED; // of the component "none"
    Logger(const String& defaultComponent, const ELogLevel logLevel);
    Logger(const Logger&);
    Logger& operator=(const Logger&);

    virtual void doProcessLogMessage(const LogMessage& message) const = 0;
    virtual LoggerRef doClone() const = 0;

  private:
    void process(ELogLevel level, const String& category, const String& message, const char* filename,
                 int fileline, const char* methodname) const;

    ELogLevel m_logLevel;
    String m_defaultComponent;
};

} // namespace OpenWBEM

#endif
