#include "FailableCalls.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <netdb.h>

namespace faults
{

namespace
{

struct Code {
    const char* name;
    int value;
};

/// The codes stand for classes of failures: one for each way that the library could tell apart.
const std::map<std::string, std::vector<Code>> waysToFail = {
    // kernel
    {"socket", {{"EMFILE", EMFILE}, {"EINVAL", EINVAL}}},
    {"ioctl", {{"EIO", EIO}}},
    {"close", {{"EIO", EIO}}},
    {"open", {{"ENODEV", ENODEV}}},
    // files
    {"fopen", {{"EACCES", EACCES}}},
    {"fgets", {{"EIO", EIO}}},
    {"fwrite", {{"ENOSPC", ENOSPC}}},
    {"fprintf", {{"ENOSPC", ENOSPC}}},
    {"fclose", {{"ENOSPC", ENOSPC}}},
    {"rename", {{"EROFS", EROFS}}},
    {"remove", {{"EROFS", EROFS}}},
    // host
    {"gethostname", {{"EFAULT", EFAULT}}},
    {"gethostbyname", {{"TRY_AGAIN", TRY_AGAIN}}},
    // platform
    {"KvuGetRegEntryUint16Ex", {{"5", 5}}},
    {"KvuSetRegEntryUint16Ex", {{"5", 5}}},
    {"KvuDiagRegisterModule", {{"5", 5}}},
    {"KvuDiagDeregisterModule", {{"5", 5}}},
    {"KvuDiagAddLogEntry", {{"5", 5}}},
    {"osGetProcessId", {{"5", 5}}},
    {"osIsZODAOnePresent", {{"5", 5}}},
    {"osResetRouter", {{"4", 4}, {"103", 103}, {"5", 5}}},
    {"dhcpIpInfoGetIPInfo", {{"-1", -1}}},
    {"dhcpIpInfoGetDefaultGateway", {{"-1", -1}}},
    {"dhcpIpInfoIsIPAddrValid", {{"refused", 1}}},
    {"dhcpIpInfoRequestDHCPLANSemaphore", {{"-1", -1}}},
    {"dhcpIpInfoReleaseDHCPLANSemaphore", {{"-1", -1}}},
    {"dhcpIpInfoInformDHCPProviderOfIPConfigChange", {{"-1", -1}}},
    {"EmsConnectionOpen", {{"5", 5}}},
    {"EmsIpAddressChange", {{"5", 5}}},
    {"EmsConnectionClose", {{"5", 5}}},
    {"runcommand", {{"1", 1}}},
    // what has no failure, or none that its caller is told
    {"sleep", {}},
    {"syslog", {}},
    {"perror", {}},
    {"request", {}}, // a line of the object manager's log
};

/// Calls with the same line are told apart by their number.
std::string label(const std::string& line, int occurrence, int occurrences)
{
    return occurrences == 1 ? line : line + " #" + std::to_string(occurrence);
}

} // namespace

std::vector<FailableCall> failableCalls(const std::vector<std::string>& journal)
{
    std::map<std::string, int> occurrences;
    for (const std::string& line : journal)
        ++occurrences[line];

    std::vector<FailableCall> calls;
    std::map<std::string, int> callsOfFunction;
    std::map<std::string, int> seen;
    for (const std::string& line : journal) {
        const std::string function = line.substr(0, line.find(' '));
        const auto ways = waysToFail.find(function);
        if (ways == waysToFail.end()) {
            ADD_FAILURE() << "how can this call fail? " << line;
            continue;
        }
        const int nth = ++callsOfFunction[function];
        const std::string call = label(line, ++seen[line], occurrences[line]);
        for (const Code& code : ways->second)
            calls.push_back({function, nth, code.value, call + " " + code.name});
    }
    return calls;
}

} // namespace faults
