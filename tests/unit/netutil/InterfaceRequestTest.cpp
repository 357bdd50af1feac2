#include "netutil/InterfaceRequest.hpp"
#include "Environment.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>

using fakes::Lines;

extern "C" int __real_close(int fd);

namespace
{

class InterfaceRequests : public fakes::ServerTest
{
};

TEST_F(InterfaceRequests, ASocketIsOpenedWithTheValueAndClosedWithIt)
{
    {
        const InterfaceRequest request("eth1");
        EXPECT_TRUE(request.isOpen());
        EXPECT_EQ(Lines{"socket"}, world.journal());
    }
    EXPECT_EQ((Lines{"socket", "close socket"}), world.journal());
}

TEST_F(InterfaceRequests, ProgramsThatTheObjectManagerStartsDoNotInheritTheSocket)
{
    const InterfaceRequest request("eth1");
    EXPECT_EQ(std::vector<int>{SOCK_DGRAM | SOCK_CLOEXEC}, world.socketTypes);
}

TEST_F(InterfaceRequests, AKernelThatDoesNotKnowTheFlagIsAskedOnceMoreWithoutIt)
{
    world.failNth(1, "socket", EINVAL);
    {
        const InterfaceRequest request("eth1");
        EXPECT_TRUE(request.isOpen());
    }
    EXPECT_EQ((std::vector<int>{SOCK_DGRAM | SOCK_CLOEXEC, SOCK_DGRAM}), world.socketTypes);
    EXPECT_EQ((Lines{"socket", "socket", "close socket"}), world.journal());
}

TEST_F(InterfaceRequests, AnyOtherFailureOfTheSocketIsFinal)
{
    world.failNth(1, "socket", EMFILE);
    const InterfaceRequest request("eth1");
    EXPECT_EQ(EMFILE, errno);
    EXPECT_FALSE(request.isOpen());
    EXPECT_EQ(Lines{"socket"}, world.journal());
}

TEST_F(InterfaceRequests, NothingIsClosedWithoutASocket)
{
    world.failAll("socket", EINVAL);
    EXPECT_FALSE(InterfaceRequest("eth1").isOpen());
    EXPECT_EQ((Lines{"socket", "socket"}), world.journal());
}

TEST_F(InterfaceRequests, DescriptorZeroIsClosedLikeAnyOther)
{
    const int savedInput = fcntl(0, F_DUPFD_CLOEXEC, 3);
    __real_close(0);
    {
        const InterfaceRequest request("eth1");
        ASSERT_EQ(1U, world.descriptors.count(0));
        EXPECT_TRUE(request.isOpen());
    }
    EXPECT_EQ(-1, fcntl(0, F_GETFD));
    dup2(savedInput, 0);
    __real_close(savedInput);
}

TEST_F(InterfaceRequests, NamesLongerThan15CharactersAreCut)
{
    int mtu = 0;
    world.interfaces["fifteen_letters"].mtu = 1499;
    EXPECT_TRUE(InterfaceRequest("fifteen_letters").getMtu(mtu));
    EXPECT_TRUE(InterfaceRequest("fifteen_letters+").getMtu(mtu));
    EXPECT_TRUE(InterfaceRequest("fifteen_letters and many more").getMtu(mtu));
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFMTU fifteen_letters", "close socket", //
                     "socket", "ioctl SIOCGIFMTU fifteen_letters", "close socket", //
                     "socket", "ioctl SIOCGIFMTU fifteen_letters", "close socket"}),
              world.journal());
}

TEST_F(InterfaceRequests, ARefusedReadLeavesTheValueAlone)
{
    world.interfaces.erase("eth1");
    InterfaceRequest request("eth1");
    int mtu = 17;
    EXPECT_FALSE(request.getMtu(mtu));
    EXPECT_EQ(17, mtu);
    short flags = 17;
    EXPECT_FALSE(request.getFlags(flags));
    EXPECT_EQ(17, flags);
    InterfaceRequest::HardwareAddress address = {1, 2, 3, 4, 5, 6};
    EXPECT_FALSE(request.getHardwareAddress(address));
    EXPECT_EQ((InterfaceRequest::HardwareAddress{1, 2, 3, 4, 5, 6}), address);
}

TEST_F(InterfaceRequests, TheHardwareAddressComesInTheOrderInWhichItIsWritten)
{
    world.interfaces["eth1"].mac = {0xde, 0xad, 0xbe, 0xef, 0x00, 0x01};
    InterfaceRequest::HardwareAddress address = {};
    EXPECT_TRUE(InterfaceRequest("eth1").getHardwareAddress(address));
    EXPECT_EQ((InterfaceRequest::HardwareAddress{0xde, 0xad, 0xbe, 0xef, 0x00, 0x01}), address);
}

TEST_F(InterfaceRequests, ANewRequestIsEmptyBehindTheNameWhateverItsMemoryHeld)
{
    alignas(InterfaceRequest) unsigned char memory[sizeof(InterfaceRequest)];
    std::memset(memory, 0xEE, sizeof memory);
    auto* const request = new (memory) InterfaceRequest("eth1");
    InterfaceRequest::HardwareAddress address = {};
    EXPECT_TRUE(
        request->getHardwareAddress(address)); // a request that is not empty is a problem of the world
    request->~InterfaceRequest();
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFHWADDR eth1", "close socket"}), world.journal());
}

TEST_F(InterfaceRequests, TheRequestNumbersAreTheKernelsOwn)
{
    EXPECT_EQ(0x8913, SIOCGIFFLAGS);
    EXPECT_EQ(0x8921, SIOCGIFMTU);
    EXPECT_EQ(0x8922, SIOCSIFMTU);
    EXPECT_EQ(0x8927, SIOCGIFHWADDR);
    EXPECT_EQ(0x8947, SIOCGMIIPHY);
    EXPECT_EQ(0x8948, SIOCGMIIREG);
    EXPECT_EQ(0x89F0, SIOCDEVPRIVATE);
}

} // namespace
