#include "wayback/BootClock.hpp"

#include <algorithm>
#include <ctime>
#include <fstream>

namespace lanctl::wayback
{

std::chrono::milliseconds sinceBoot()
{
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::seconds(now.tv_sec) +
                                                                 std::chrono::nanoseconds(now.tv_nsec));
}

long secondsUntil(std::chrono::milliseconds time)
{
    constexpr long aSecond = 1000;
    const long rest = (time - sinceBoot()).count();
    return std::max(0L, (rest + aSecond - 1) / aSecond);
}

std::string bootId()
{
    std::string id;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), id);
    return id;
}

} // namespace lanctl::wayback
