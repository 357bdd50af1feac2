#include "OW_LogMessage.hpp"
#include "OW_Logger.hpp"
#include "OW_OperationContext.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

const ELogLevel ERROR_LEVEL = ELogLevel(2);
const ELogLevel INFO_LEVEL = ELogLevel(3);
const ELogLevel DEBUG_LEVEL = ELogLevel(4);
const ELogLevel ALL_LEVEL = ELogLevel(5);

// Appends "component category message" of what passes to a text.
class TextLogger : public Logger
{
  public:
    TextLogger(std::string& text, ELogLevel level) : Logger("LANProvider", level), m_text(text) {}

  protected:
    void doProcessLogMessage(const LogMessage& message) const override
    {
        m_text += std::string(message.component.c_str()) + " " + message.category.c_str() + " " +
                  message.message.c_str() + "\n";
        EXPECT_EQ(nullptr, message.filename);
        EXPECT_EQ(-1, message.fileline);
        EXPECT_EQ(nullptr, message.methodname);
    }
    LoggerRef doClone() const override { return LoggerRef(new TextLogger(*this)); }

  private:
    std::string& m_text;
};

// What passes a logger whose level was set by name.
std::string passing(const char* level)
{
    std::string text;
    const LoggerRef logger(new TextLogger(text, ALL_LEVEL));
    logger->setLogLevel(String(level));
    logger->logFatalError("1");
    logger->logError("2");
    logger->logInfo("3");
    logger->logDebug("4");
    return text;
}

const char* const FATAL = "LANProvider FATAL 1\n";
const char* const ERROR = "LANProvider ERROR 2\n";
const char* const INFO = "LANProvider INFO 3\n";
const char* const DEBUG = "LANProvider DEBUG 4\n";

} // namespace

TEST(Logger, passesWhatItsLevelAllows)
{
    EXPECT_EQ("", passing("none"));
    EXPECT_EQ(std::string(FATAL) + ERROR, passing("error"));
    EXPECT_EQ(std::string(FATAL) + ERROR + INFO, passing("info"));
    EXPECT_EQ(std::string(FATAL) + ERROR + INFO + DEBUG, passing("debug"));
    EXPECT_EQ(std::string(FATAL) + ERROR + INFO + DEBUG, passing("all"));
}

TEST(Logger, readsLevelNamesInAnyCase)
{
    EXPECT_EQ(std::string(FATAL) + ERROR, passing("Error"));
}

TEST(Logger, isAtTheFatalLevelForAnyOtherName)
{
    EXPECT_EQ(FATAL, passing("fatal"));
    EXPECT_EQ(FATAL, passing("verbose"));
}

TEST(Logger, passesMessagesByCategoryWhateverItsLevel)
{
    std::string text;
    const LoggerRef logger(new TextLogger(text, ERROR_LEVEL));
    logger->logMessage(Logger::STR_ERROR_CATEGORY, "2");
    logger->logMessage(Logger::STR_DEBUG_CATEGORY, "4");
    EXPECT_EQ("LANProvider ERROR 2\nLANProvider DEBUG 4\n", text);
}

TEST(Logger, tellsItsLevel)
{
    std::string text;
    const LoggerRef logger(new TextLogger(text, INFO_LEVEL));
    EXPECT_EQ(INFO_LEVEL, logger->getLogLevel());
    logger->setLogLevel(DEBUG_LEVEL);
    EXPECT_EQ(DEBUG_LEVEL, logger->getLogLevel());
}

TEST(OperationContext, keepsTexts)
{
    OperationContext context;
    EXPECT_FALSE(context.keyHasData(OperationContext::USER_NAME));
    context.setStringData(OperationContext::USER_NAME, "admin");
    EXPECT_TRUE(context.keyHasData("USER_NAME"));
    EXPECT_EQ("admin", context.getStringData("USER_NAME"));
    EXPECT_EQ("admin", context.getStringDataWithDefault("USER_NAME", "nobody"));
    context.removeData("USER_NAME");
    EXPECT_FALSE(context.keyHasData("USER_NAME"));
}

TEST(OperationContext, throwsOrGivesADefaultForAbsentTexts)
{
    const OperationContext context;
    EXPECT_THROW(context.getStringData("x"), ContextDataNotFoundException);
    EXPECT_EQ("nobody", context.getStringDataWithDefault("x", "nobody"));
    EXPECT_EQ("", context.getStringDataWithDefault("x"));
}
