#ifndef KV_TESTS_FAULTS_FAILABLECALLS_HPP
#define KV_TESTS_FAULTS_FAILABLECALLS_HPP

#include <string>
#include <vector>

namespace faults
{

/// One call that an operation makes to the server, and one way in which it can fail.
struct FailableCall {
    std::string function;
    int nth;  ///< among the operation's calls of this function, from 1
    int code; ///< as World::failNth takes it
    std::string
        label; ///< "<journal line> [#<n> when the line occurs n times before or again] <name of the code>"
};

/// Every call of a journal in its order, with each of its ways to fail. A line of a function of which it is
/// not known whether it can fail is a failure of the running test.
std::vector<FailableCall> failableCalls(const std::vector<std::string>& journal);

} // namespace faults

#endif
