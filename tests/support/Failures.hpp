#ifndef KV_TESTS_FAILURES_HPP
#define KV_TESTS_FAILURES_HPP

#include <OW_CIMException.hpp>

#include <gtest/gtest.h>

#include <string>

namespace fakes
{

/// What the action throws, as "<unit> <code> <text>". The text is the bare one, and left out when there is
/// none. "nothing" when the action throws nothing. A failure without a line number fails the test.
template <typename Action>
std::string failureOf(const Action& action)
{
    try {
        action();
    } catch (const OpenWBEM::CIMException& e) {
        EXPECT_GT(e.getLine(), 0);
        const std::string text = e.Exception::getMessage();
        return std::string(e.getFile()) + " " + std::to_string(e.getErrNo()) +
               (text.empty() ? "" : " " + text);
    }
    return "nothing";
}

} // namespace fakes

#endif
