#include "web/Api.hpp"

#include "TemporaryFolder.hpp"
#include "wayback/GuardLoop.hpp"

#include <gtest/gtest.h>

namespace lanctl::web
{
namespace
{

using json::Json;

/// The interface of a server that does not answer: what a change would need of it is refused, the rest works.
class ApiTest : public testing::Test
{
  protected:
    Api api(bool readOnly = false)
    {
        return Api({"pbx", readOnly, 60, {"-s", "pbx"}}, m_follower, m_history,
                   [this](const auto& arguments, const std::string&) {
                       m_run = arguments;
                       return Finished{};
                   });
    }

    static Response post(Api& api, const std::string& call, const std::string& body)
    {
        return api.answer({"POST", "/api/" + call, {}, body});
    }

    int beginChange() const
    {
        wayback::Entry entry;
        entry.server = "pbx";
        entry.plan = {"eth1 mtu: 1500 -> 1400"};
        return m_history.begin(entry, "endpoints: {}\n");
    }

    TemporaryFolder m_temporary;
    wayback::History m_history{wayback::Folder(m_temporary.path())};
    // Nobody listens on this port.
    Follower m_follower{wire::ConnectionOptions{}};
    std::vector<std::string> m_run;
};

TEST_F(ApiTest, TheHistoryIsToldOldestFirst)
{
    m_history.end(beginChange(), wayback::Result::Confirmed);
    beginChange();
    Api interface = api();
    const Json told = Json::parse(interface.answer({"GET", "/api/history", {}, ""}).body);
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0]["result"], "confirmed");
    EXPECT_EQ(told[1]["result"], "open");
    EXPECT_EQ(told[1]["plan"], Json({"eth1 mtu: 1500 -> 1400"}));
}

TEST_F(ApiTest, AConfirmationIsARequestToTheGuard)
{
    const int number = beginChange();
    Api interface = api();
    EXPECT_EQ(post(interface, "confirm", R"({"number": )" + std::to_string(number + 1) + "}").status, 409U);
    EXPECT_FALSE(m_history.folder().has(wayback::requests::confirm));
    EXPECT_EQ(post(interface, "confirm", R"({"number": )" + std::to_string(number) + "}").status, 200U);
    EXPECT_TRUE(m_history.folder().has(wayback::requests::confirm));
    EXPECT_FALSE(m_history.folder().has(wayback::requests::takeBackNow));
}

TEST_F(ApiTest, ATakingBackIsARequestToTheGuard)
{
    const int number = beginChange();
    Api interface = api();
    EXPECT_EQ(post(interface, "revert", R"({"number": )" + std::to_string(number) + "}").status, 200U);
    EXPECT_TRUE(m_history.folder().has(wayback::requests::takeBackNow));
}

TEST_F(ApiTest, NothingIsAskedOfTheGuardWhereNothingMayBeChanged)
{
    const int number = beginChange();
    Api interface = api(true);
    for (const char* call : {"apply", "confirm", "revert", "rollback", "anything"})
        EXPECT_EQ(post(interface, call, R"({"number": )" + std::to_string(number) + "}").status, 403U)
            << call;
    EXPECT_FALSE(m_history.folder().has(wayback::requests::confirm));
    EXPECT_FALSE(m_history.folder().has(wayback::requests::takeBackNow));
}

TEST_F(ApiTest, WhatIsNotTheExpectedJsonIsRefusedAndRunsNothing)
{
    Api interface = api();
    for (const char* body :
         {"", "{", "7", "{}", R"({"changes": 7})", R"({"number": "1"})", R"({"number": 1e9})"})
        for (const char* call : {"apply", "confirm", "revert", "rollback"})
            EXPECT_EQ(post(interface, call, body).status, 400U) << call << " " << body;
    EXPECT_TRUE(m_run.empty());
}

TEST_F(ApiTest, WhatIsNotHereIsSaid)
{
    Api interface = api();
    EXPECT_EQ(interface.answer({"GET", "/api/plan", {}, ""}).status, 404U);
    EXPECT_EQ(post(interface, "nothing", "{}").status, 404U);
    EXPECT_EQ(post(interface, "state", "{}").status, 405U);
    EXPECT_EQ(post(interface, "history", "{}").status, 405U);
}

} // namespace
} // namespace lanctl::web
