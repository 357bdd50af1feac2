#include "ems_client.h"

#include "PlatformTest.hpp"

#include <gmock/gmock.h>

#include <atomic>
#include <cstring>
#include <thread>
#include <vector>

namespace
{

using testing::ElementsAre;

std::vector<std::vector<unsigned char>> received;
std::atomic<int> answers = 0;

int keep(sEmsPacket* packet)
{
    std::vector<unsigned char> bytes(10);
    std::memcpy(bytes.data(), packet, bytes.size());
    received.push_back(bytes);
    return 0;
}

int count(sEmsPacket* /*packet*/)
{
    ++answers;
    return 0;
}

int closeWhenCalled(sEmsPacket* /*packet*/)
{
    ++answers;
    return EmsConnectionClose();
}

class EmsClient : public PlatformTest
{
  protected:
    void SetUp() override
    {
        received.clear();
        answers = 0;
    }
};

TEST_F(EmsClient, AnAnnouncementIsAnsweredWithABigEndianResponse)
{
    EXPECT_EQ(EmsConnectionOpen(0, keep), 0);
    EXPECT_EQ(EmsIpAddressChange(1, 1, 2), 0);
    EXPECT_EQ(EmsConnectionClose(), 0);
    EXPECT_THAT(received, ElementsAre(ElementsAre(0, 1, 0, 0, 0, 0, 0, 0, 0, 1)));
}

TEST_F(EmsClient, EveryCallIsRecordedAsAnEvent)
{
    EmsConnectionOpen(0, keep);
    EmsIpAddressChange(1, 1, 4);
    EmsConnectionClose();
    EXPECT_EQ(events(), "EmsConnectionOpen(0) = 0\n"
                        "EmsIpAddressChange(1, 1, 0x4) = 0\n"
                        "EmsConnectionClose() = 0\n");
}

TEST_F(EmsClient, AnnouncingNeedsAnOpenConnection)
{
    EXPECT_EQ(EmsIpAddressChange(1, 1, 1), 1);
    EXPECT_EQ(EmsConnectionOpen(0, keep), 0);
    EXPECT_EQ(EmsConnectionClose(), 0);
    EXPECT_EQ(EmsIpAddressChange(1, 1, 1), 1);
    EXPECT_THAT(received, ElementsAre());
    EXPECT_EQ(events(), "EmsIpAddressChange(1, 1, 0x1) = 1\n"
                        "EmsConnectionOpen(0) = 0\n"
                        "EmsConnectionClose() = 0\n"
                        "EmsIpAddressChange(1, 1, 0x1) = 1\n");
}

TEST_F(EmsClient, OnlyAnOpenConnectionCanBeClosed)
{
    EXPECT_EQ(EmsConnectionClose(), 1);
    EXPECT_EQ(EmsConnectionOpen(0, keep), 0);
    EXPECT_EQ(EmsConnectionClose(), 0);
    EXPECT_EQ(EmsConnectionClose(), 1);
}

TEST_F(EmsClient, AConnectionWithoutHandlerIsRefused)
{
    EXPECT_EQ(EmsConnectionOpen(0, nullptr), 1);
    EXPECT_EQ(EmsIpAddressChange(1, 1, 1), 1);
}

TEST_F(EmsClient, OpeningAgainReplacesAConnectionThatWasLeftOpen)
{
    EXPECT_EQ(EmsConnectionOpen(0, keep), 0);
    EXPECT_EQ(EmsConnectionOpen(0, count), 0);
    EXPECT_EQ(EmsIpAddressChange(1, 1, 1), 0);
    EXPECT_EQ(EmsConnectionClose(), 0);
    EXPECT_THAT(received, ElementsAre());
    EXPECT_EQ(answers, 1);
}

TEST_F(EmsClient, AHandlerMayCloseTheConnection)
{
    EXPECT_EQ(EmsConnectionOpen(0, closeWhenCalled), 0);
    EXPECT_EQ(EmsIpAddressChange(1, 1, 1), 0);
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(EmsConnectionClose(), 1);
}

TEST_F(EmsClient, ThreadsMayAnnounceTogether)
{
    ASSERT_EQ(EmsConnectionOpen(0, count), 0);
    const auto announce = [] {
        for (int i = 0; i < 50; ++i)
            EmsIpAddressChange(1, 1, 1);
    };
    std::thread first(announce);
    std::thread second(announce);
    first.join();
    second.join();
    EXPECT_EQ(answers, 100);
    EXPECT_EQ(EmsConnectionClose(), 0);
}

TEST_F(EmsClient, AnAnnouncementThatNobodyHearsIsAFailure)
{
    ASSERT_EQ(EmsConnectionOpen(0, count), 0);
    loseStateDir();
    const std::string reason = path("events.log") + ": No such file or directory\n";
    EXPECT_EQ(complaints([] { EXPECT_EQ(EmsIpAddressChange(1, 1, 1), 1); }),
              "kvplatform: EmsIpAddressChange: " + reason);
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(complaints([] { EXPECT_EQ(EmsConnectionClose(), 0); }),
              "kvplatform: EmsConnectionClose: " + reason);
    EXPECT_EQ(complaints([] { EXPECT_EQ(EmsConnectionOpen(0, count), 1); }),
              "kvplatform: EmsConnectionOpen: " + reason);
}

} // namespace
