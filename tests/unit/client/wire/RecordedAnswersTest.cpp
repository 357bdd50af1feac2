// What a real OpenWBEM answered to real clients.
#include "RecordedExchanges.hpp"
#include "wire/AnswerParser.hpp"
#include "wire/ServerText.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace lanctl::wire;

namespace
{

std::string bodyOf(const std::string& response)
{
    const auto end = response.find("\r\n\r\n");
    return end == std::string::npos ? "" : response.substr(end + 4);
}

/// Whether it is one response. Batches have several in one message, pipelined requests several messages, and
/// to a client that takes trailers the error comes in those.
bool isSingle(const std::string& response)
{
    const std::string body = bodyOf(response);
    return body.find("<SIMPLERSP>") != std::string::npos && body.find("HTTP/1.1 ") == std::string::npos &&
           response.find("Transfer-Encoding: chunked") == std::string::npos;
}

struct Answers {
    std::map<std::string, Answer> understood; // by the name of their exchange
    std::set<std::string> malformed;
};

Answers readAnswers()
{
    Answers answers;
    for (const auto& exchange : recorded::allExchanges()) {
        if (!isSingle(exchange.response))
            continue;
        try {
            answers.understood.emplace(exchange.name, parseAnswer(bodyOf(exchange.response)));
        } catch (const MalformedAnswer&) {
            answers.malformed.insert(exchange.name);
        }
    }
    return answers;
}

const Answers& answers()
{
    static const Answers all = readAnswers();
    return all;
}

const Answer& answer(const std::string& name)
{
    return answers().understood.at(name);
}

} // namespace

TEST(RecordedAnswers, areUnderstoodWhereTheyAreXml)
{
    const auto& all = answers().understood;
    EXPECT_GT(all.size(), 250U);
    const auto errors = std::count_if(all.begin(), all.end(),
                                      [](const auto& entry) { return entry.second.error.has_value(); });
    EXPECT_GT(errors, 50);
    for (const auto& [name, read] : all)
        EXPECT_FALSE(read.method.empty()) << name;
    // OpenWBEM repeats parts of a malformed request in its answer as they are.
    EXPECT_EQ(answers().malformed,
              (std::set<std::string>{"303-multireq-runtime", "314-xml-response", "323-xml-lower-case",
                                     "331-xml-id", "338-xml-export"}));
}

TEST(RecordedAnswers, giveInstancesThatCameUnderNamesWithoutKeys)
{
    const Answer& read = answer("005-wbemcli-ei-service");
    ASSERT_EQ(read.instances.size(), 1U);
    EXPECT_EQ(read.instances[0].className, "SAMPLE_Service");
    EXPECT_EQ(read.instances[0].find("Name")->value, "svc0");
    EXPECT_EQ(read.instances[0].find("Level")->value, "7");
    EXPECT_EQ(read.instances[0].find("Level")->type, "uint16");
    EXPECT_EQ(read.instances[0].find("level"), nullptr);
}

TEST(RecordedAnswers, giveTheWarningsOfProperties)
{
    const Instance& port = answer("007-wbemcli-gi-port1").instances.at(0);
    EXPECT_EQ(port.find("IPAddress")->value, "198.51.100.1");
    EXPECT_EQ(port.find("IPAddress")->qualifiers.at("ImpactWarning"),
              "Changing \"IPAddress\" <restarts> the port & drops calls");
    EXPECT_EQ(port.find("Description")->value, "A \"quoted\" <tag> & 'single'\ttab\r\nsecond line");
    EXPECT_EQ(port.find("EnabledState")->value, "");
}

TEST(RecordedAnswers, giveTheResultOfAMethod)
{
    EXPECT_EQ(answer("024-wbemcli-cm-2").returnValue, "Reset <initiated> & done");
}

TEST(RecordedAnswers, giveErrorsWithTextAndIdentifier)
{
    const Answer& read = answer("076-pywbem-gi-fail");
    ASSERT_TRUE(read.error);
    const ServerText text = bareText(read.error->code, read.error->description);
    EXPECT_EQ(text.text, "The port cannot be read");
    EXPECT_EQ(text.identifier, "SAMPLE_ERROR_cannotRead");
}
