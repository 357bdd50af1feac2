#include "dhcp_ip_info.h"

#include "ChildProcess.hpp"
#include "PlatformTest.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

namespace
{

using std::chrono::milliseconds;

class LanSemaphoreTest : public PlatformTest
{
  protected:
    /** Whether nobody holds the semaphore. */
    bool isFree() const
    {
        const int fd = ::open(path("lan.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        const bool locked = ::flock(fd, LOCK_EX | LOCK_NB) == 0;
        ::close(fd);
        return locked;
    }
};

int request()
{
    return dhcpIpInfoRequestDHCPLANSemaphore();
}

int release()
{
    return dhcpIpInfoReleaseDHCPLANSemaphore();
}

TEST_F(LanSemaphoreTest, IsHeldFromRequestToRelease)
{
    EXPECT_TRUE(isFree());
    EXPECT_EQ(request(), 0);
    EXPECT_FALSE(isFree());
    EXPECT_EQ(release(), 0);
    EXPECT_TRUE(isFree());
}

TEST_F(LanSemaphoreTest, CanBeTakenAgain)
{
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(request(), 0);
        EXPECT_EQ(release(), 0);
    }
    EXPECT_TRUE(isFree());
}

TEST_F(LanSemaphoreTest, ReleaseWithoutRequestFails)
{
    EXPECT_EQ(release(), 1);
    EXPECT_EQ(request(), 0);
    EXPECT_EQ(release(), 0);
    EXPECT_EQ(release(), 1);
}

TEST_F(LanSemaphoreTest, RequestAndReleaseAreRecordedAsEvents)
{
    request();
    release();
    release();
    EXPECT_EQ(events(), "dhcpIpInfoRequestDHCPLANSemaphore() = 0\n"
                        "dhcpIpInfoReleaseDHCPLANSemaphore() = 0\n"
                        "dhcpIpInfoReleaseDHCPLANSemaphore() = 1\n");
}

TEST_F(LanSemaphoreTest, OneThreadAtATimeHoldsIt)
{
    std::atomic<int> holders = 0;
    std::atomic<int> collisions = 0;
    const auto work = [&] {
        for (int i = 0; i < 50; ++i) {
            request();
            if (++holders != 1)
                ++collisions;
            --holders;
            if (release() != 0)
                ++collisions;
        }
    };
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(work);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(collisions, 0);
}

TEST_F(LanSemaphoreTest, ARequestWaitsForAnotherProcess)
{
    Signal held;
    Signal end;
    ChildProcess other([&] {
        request();
        held.send();
        end.wait();
        return release();
    });
    held.wait();
    std::future<int> waiting = std::async(std::launch::async, request);
    EXPECT_EQ(waiting.wait_for(milliseconds(10)), std::future_status::timeout);
    end.send();
    EXPECT_EQ(waiting.get(), 0);
    EXPECT_EQ(other.wait(), 0);
    EXPECT_EQ(release(), 0);
    EXPECT_EQ(events(), "dhcpIpInfoRequestDHCPLANSemaphore() = 0\n"
                        "dhcpIpInfoReleaseDHCPLANSemaphore() = 0\n"
                        "dhcpIpInfoRequestDHCPLANSemaphore() = 0\n"
                        "dhcpIpInfoReleaseDHCPLANSemaphore() = 0\n");
}

TEST_F(LanSemaphoreTest, ARequestWaitsOnWhenItIsInterrupted)
{
    ASSERT_EQ(request(), 0);
    Signal started;
    ChildProcess waiting([&] {
        interruptAllTheTime();
        started.send();
        return request();
    });
    started.wait();
    std::this_thread::sleep_for(milliseconds(10));
    EXPECT_EQ(release(), 0);
    EXPECT_EQ(waiting.wait(), 0);
}

TEST_F(LanSemaphoreTest, ADyingHolderGivesItBack)
{
    Signal held;
    ChildProcess other([&] {
        request();
        held.send();
        ::pause();
        return 0;
    });
    held.wait();
    std::future<int> waiting = std::async(std::launch::async, request);
    EXPECT_EQ(waiting.wait_for(milliseconds(10)), std::future_status::timeout);
    other.kill();
    EXPECT_EQ(waiting.get(), 0);
    EXPECT_EQ(release(), 0);
}

TEST_F(LanSemaphoreTest, AForkedChildNeitherHoldsNorFreesItsParentsLock)
{
    ASSERT_EQ(request(), 0);
    EXPECT_EQ(inChild([] { return release(); }), 1);
    EXPECT_FALSE(isFree());
    EXPECT_EQ(release(), 0);
}

TEST_F(LanSemaphoreTest, AForkedChildDoesNotKeepTheLockThatItsParentReleases)
{
    ASSERT_EQ(request(), 0);
    Signal end;
    ChildProcess child([&] {
        end.wait();
        return 0;
    });
    EXPECT_EQ(release(), 0);
    EXPECT_TRUE(isFree());
    end.send();
    EXPECT_EQ(child.wait(), 0);
}

TEST_F(LanSemaphoreTest, AMissingStateDirectoryIsReported)
{
    loseStateDir();
    EXPECT_EQ(complaints([] { EXPECT_EQ(request(), 1); }),
              "kvplatform: dhcpIpInfoRequestDHCPLANSemaphore: " + path("lan.lock") +
                  ": No such file or directory\n");
    EXPECT_EQ(complaints([] { EXPECT_EQ(release(), 1); }), "");
}

} // namespace
