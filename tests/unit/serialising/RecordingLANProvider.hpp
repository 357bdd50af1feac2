#ifndef KV_TESTS_RECORDINGLANPROVIDER_HPP
#define KV_TESTS_RECORDINGLANPROVIDER_HPP

#include <functional>
#include <sstream>
#include <string>

/// A LANProvider under the library's name that only tells how it is called.
namespace recording
{

/// An operation and its arguments as text: of what is passed by reference the address, since "unchanged"
/// means the very same object.
template <typename... Arguments>
std::string call(const char* operation, const Arguments&... arguments)
{
    std::ostringstream text;
    text << operation;
    ((text << ' ' << arguments), ...);
    return text.str();
}

/// What happens inside each operation; it may throw.
extern std::function<void(const std::string& call)> inside;

} // namespace recording

#endif
