#include "lanendpoint/EmsNotice.hpp"
#include "EndpointServer.hpp"
#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <gtest/gtest.h>

using namespace fakes; // for the sums of journal lines

namespace
{

class EmsNotices : public EndpointServer
{
  protected:
    /// Hands the handler a packet that begins at an odd address, with the given bytes.
    int receive(const std::string& packet)
    {
        m_memory = "?" + packet;
        return EmsIPChangePacketHandler(reinterpret_cast<sEmsPacket*>(m_memory.data() + 1));
    }

    static std::string packet(const std::string& type, const std::string& requestCode)
    {
        return type + std::string("\x55\x66\x77\x88", 4) + requestCode;
    }

  private:
    std::string m_memory;
};

const std::string response("\x00\x01", 2);
const std::string event("\x00\x02", 2);
const std::string ipChange("\x00\x00\x00\x01", 4);
const std::string otherRequest("\x00\x00\x00\x02", 4);

TEST_F(EmsNotices, AChangeIsAnnouncedWithTheBitOfTheInterface)
{
    for (const char* ifName : {"eth0", "eth1", "eth2"}) {
        world.clearJournal();
        EXPECT_EQ(0, ORX_LANEndpointAPI(ifName).notifyEMS());
        EXPECT_EQ(emsNotice(ifName), world.journal());
    }
    EXPECT_EQ(&EmsIPChangePacketHandler, world.emsHandler);
}

TEST_F(EmsNotices, TheBitIsThatOfTheOneDigitBehindEth)
{
    for (const char* ifName : {"eth01", "eth12", "eth2.7"})
        EXPECT_EQ(0, ORX_LANEndpointAPI(ifName).notifyEMS());
    EXPECT_EQ(emsNotice("eth0") + emsNotice("eth1") + emsNotice("eth2"), world.journal());
}

TEST_F(EmsNotices, NamesWithoutAnInterfaceNumberAnnounceNoBitThatTheyDoNotHave)
{
    for (const char* ifName : {"", "eth", "eth ", "eth\xff", "ethz"})
        EXPECT_EQ(0, ORX_LANEndpointAPI(ifName).notifyEMS());
    EXPECT_EQ(0, ORX_LANEndpointAPI("eth7").notifyEMS());
    const Lines nobody = {"EmsConnectionOpen 0", "EmsIpAddressChange 1 1 0", "EmsConnectionClose"};
    const Lines eth7 = {"EmsConnectionOpen 0", "EmsIpAddressChange 1 1 128", "EmsConnectionClose"};
    EXPECT_EQ(nobody + nobody + nobody + nobody + nobody + eth7, world.journal(Notice));
}

TEST_F(EmsNotices, AConnectionThatCannotBeOpenedEndsTheNotice)
{
    world.failNth(1, "EmsConnectionOpen", 42);
    EXPECT_EQ(-1, ORX_LANEndpointAPI("eth1").notifyEMS());
    EXPECT_EQ((Lines{"EmsConnectionOpen 0",
                     "syslog 5 ORX_LANEndpointAPI: Cannot Open EMS connection: error code: 42\n"}),
              world.journal());
}

TEST_F(EmsNotices, AnAnnouncementThatFailsLeavesTheConnectionOpen)
{
    world.failNth(1, "EmsIpAddressChange", -3);
    EXPECT_EQ(-1, ORX_LANEndpointAPI("eth1").notifyEMS());
    EXPECT_EQ((Lines{"EmsConnectionOpen 0", "EmsIpAddressChange 1 1 2",
                     "syslog 5 ORX_LANEndpointAPI: Cannot notify IP address change: error code: -3\n"}),
              world.journal());
}

TEST_F(EmsNotices, AConnectionThatCannotBeClosedIsOnlyLogged)
{
    world.failNth(1, "EmsConnectionClose", 9);
    EXPECT_EQ(0, ORX_LANEndpointAPI("eth1").notifyEMS());
    EXPECT_EQ(emsNotice("eth1") +
                  Lines{"syslog 5 ORX_LANEndpointAPI: Cannot close EMS connection: error code: 9\n"},
              world.journal());
}

TEST_F(EmsNotices, AnEventIsLogged)
{
    EXPECT_EQ(0, receive(packet(event, ipChange)));
    EXPECT_EQ(Lines{"syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_EVENT"}, world.journal());
}

TEST_F(EmsNotices, AResponseToAnAddressChangeIsLoggedInTwoLines)
{
    EXPECT_EQ(0, receive(packet(response, ipChange)));
    EXPECT_EQ((Lines{"syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_RESPONSE",
                     "syslog 5 ORX_LANEndpointAPI: EMS_IP_CHANGE_REQUEST"}),
              world.journal());
}

TEST_F(EmsNotices, AResponseToAnotherRequestIsLoggedInOneLine)
{
    for (const std::string& request :
         {otherRequest, std::string("\x01\x00\x00\x00", 4), std::string("\x00\x01\x00\x01", 4),
          std::string("\x00\x00\x01\x01", 4)}) {
        world.clearJournal();
        EXPECT_EQ(0, receive(packet(response, request)));
        EXPECT_EQ(Lines{"syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_RESPONSE"}, world.journal());
    }
}

TEST_F(EmsNotices, OtherPacketsAreNotLogged)
{
    for (const std::string& type :
         {std::string("\x00\x00", 2), std::string("\x00\x03", 2), std::string("\x01\x00", 2),
          std::string("\x02\x00", 2), std::string("\x01\x01", 2)})
        EXPECT_EQ(0, receive(packet(type, ipChange)));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(EmsNotices, AnEventMayBeTooShortForARequestCode)
{
    EXPECT_EQ(0, receive(event));
    EXPECT_EQ(Lines{"syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_EVENT"}, world.journal());
}

} // namespace
