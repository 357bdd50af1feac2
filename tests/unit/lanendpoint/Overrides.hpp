#ifndef KV_TESTS_OVERRIDES_HPP
#define KV_TESTS_OVERRIDES_HPP

#include <functional>
#include <map>
#include <string>

namespace fakes
{

/// Results and side effects of the endpoint's own operations that no state of the server can bring about. The
/// linker puts them between the classes, as it does with the C library, so that callers' answers to them can
/// be tested.
struct Overrides {
    Overrides();
    ~Overrides();
    Overrides(const Overrides&) = delete;
    Overrides& operator=(const Overrides&) = delete;

    std::map<std::string, int> results; ///< by operation: its result, and it does nothing else
    std::map<std::string, std::function<void()>> interruptions; ///< by operation: called first; may throw
};

} // namespace fakes

#endif
