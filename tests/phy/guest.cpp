// The first and only process of the emulated machine: loads the drivers of the network cards and answers
// questions about them with the product's own functions. It is driven through the second serial port, one
// line a question, one an answer; the first serial port is the kernel's console.

#include "netutil/InterfaceMtu.hpp"
#include "netutil/InterfaceState.hpp"
#include "netutil/LinkSpeed.hpp"

#include <fcntl.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/reboot.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{

std::string problem(const std::string& what)
{
    return "problem: " + what + ": " + std::strerror(errno);
}

void mountAt(const char* type, const char* path)
{
    mkdir(path, 0755);
    if (mount(type, path, type, 0, nullptr) != 0)
        std::perror(path);
}

/// Loads what /modules/order lists, one file name a line, a module behind those that it needs.
void loadDrivers()
{
    std::ifstream order("/modules/order");
    for (std::string name; std::getline(order, name);) {
        const int fd = open(("/modules/" + name).c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0 || syscall(SYS_finit_module, fd, "", 0) != 0)
            std::perror(name.c_str());
        close(fd);
    }
}

/// The name of the interface with this hardware address, "" when there is none.
std::string interfaceOf(const std::string& hardwareAddress)
{
    for (const auto& entry : std::filesystem::directory_iterator("/sys/class/net")) {
        std::string address;
        std::getline(std::ifstream(entry.path() / "address"), address);
        if (address == hardwareAddress)
            return entry.path().filename();
    }
    return "";
}

/// "name driver" of the card with this hardware address.
std::string find(const std::string& hardwareAddress)
{
    const std::string name = interfaceOf(hardwareAddress);
    if (name.empty())
        return "problem: no interface has " + hardwareAddress;
    // The device of a virtio card is not the PCI device; its driver is found at the same place nevertheless.
    const std::filesystem::path driver = "/sys/class/net/" + name + "/device/driver";
    return name + " " + std::filesystem::read_symlink(driver).filename().string();
}

/// Switches the interface on or off, as an administrator would.
std::string administer(const std::string& name, bool on)
{
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request = {};
    std::strncpy(request.ifr_name, name.c_str(), IFNAMSIZ - 1);
    std::string answer = "done";
    if (ioctl(fd, SIOCGIFFLAGS, &request) != 0)
        answer = problem("SIOCGIFFLAGS");
    request.ifr_flags = static_cast<short>(on ? request.ifr_flags | IFF_UP : request.ifr_flags & ~IFF_UP);
    if (ioctl(fd, SIOCSIFFLAGS, &request) != 0)
        answer = problem("SIOCSIFFLAGS");
    close(fd);
    return answer;
}

/// All that the product reads of an interface, each with the result of its function.
std::string report(const std::string& name)
{
    std::uint64_t speed = 0;
    std::uint16_t enabled = 0;
    std::uint16_t status = 0;
    std::uint32_t mtu = 0;
    const int speedResult = kv_get_EthernetIfSpeed(name.c_str(), &speed);
    const int enabledResult = kv_get_enabledState(name.c_str(), &enabled);
    const int statusResult = kv_get_operationalStatus(name.c_str(), &status);
    const int mtuResult = kv_get_mtu(name.c_str(), &mtu);
    std::ostringstream answer;
    answer << "speed " << speedResult << ' ' << speed << ", enabled " << enabledResult << ' ' << enabled
           << ", status " << statusResult << ' ' << status << ", mtu " << mtuResult << ' ' << mtu;
    return answer.str();
}

std::string changeMtu(const std::string& name, std::uint32_t mtu)
{
    return std::to_string(kv_set_mtu(name.c_str(), mtu));
}

std::string answerTo(const std::string& question)
{
    std::istringstream words(question);
    std::string verb;
    std::string name;
    std::uint32_t number = 0;
    words >> verb >> name >> number;
    if (verb == "find")
        return find(name);
    if (verb == "up" || verb == "down")
        return administer(name, verb == "up");
    if (verb == "report")
        return report(name);
    if (verb == "mtu")
        return changeMtu(name, number);
    return "problem: unknown question: " + question;
}

std::FILE* openPort(const char* path, const char* mode)
{
    std::FILE* port = std::fopen(path, mode);
    if (port == nullptr)
        return nullptr;
    termios settings = {};
    tcgetattr(fileno(port), &settings);
    cfmakeraw(&settings);
    tcsetattr(fileno(port), TCSANOW, &settings);
    return port;
}

void answerQuestions()
{
    std::FILE* questions = openPort("/dev/ttyS1", "r");
    std::FILE* answers = openPort("/dev/ttyS1", "w");
    if (questions == nullptr || answers == nullptr) {
        std::perror("/dev/ttyS1");
        return;
    }
    std::fputs("ready\n", answers);
    std::fflush(answers);
    char line[256];
    while (std::fgets(line, sizeof line, questions) != nullptr) {
        line[std::strcspn(line, "\n")] = '\0';
        std::fprintf(answers, "%s\n", answerTo(line).c_str());
        std::fflush(answers);
    }
}

} // namespace

int main()
{
    mountAt("devtmpfs", "/dev");
    mountAt("proc", "/proc");
    mountAt("sysfs", "/sys");
    // Nothing has given this process a standard output yet.
    std::freopen("/dev/console", "w", stdout);
    std::freopen("/dev/console", "w", stderr);
    loadDrivers();
    answerQuestions();
    sync();
    reboot(RB_POWER_OFF);
    return EXIT_FAILURE;
}
