#include "wayback/Steady.hpp"

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

std::string bootId()
{
    std::string id;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), id);
    return id;
}

} // namespace lanctl::wayback
