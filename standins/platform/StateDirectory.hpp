#ifndef KVPLATFORM_STATEDIRECTORY_HPP
#define KVPLATFORM_STATEDIRECTORY_HPP

#include <exception>
#include <initializer_list>
#include <optional>
#include <string>

/**
 * The folder that holds everything the stand-in remembers, and the two ways in which the stand-in speaks to a
 * person: the event log in that folder and complaints on standard error. All functions are thread-safe.
 */
namespace kvplatform
{

/** Status of every failure that has no status of its own. */
constexpr int kFailure = 1;

/** Path of an entry of the state directory: KV_STATE_DIR, /var/lib/kv without it. */
std::string statePath(const std::string& entry);

/** Writes the line "kvplatform: OPERATION: SUBJECT: REASON" to standard error. */
void complain(const std::string& operation, const std::string& subject, const std::string& reason);

/** The text of the errno of the last system call. */
std::string lastError();

/** Whether the entry exists; empty, with a complaint, when the state directory cannot tell. */
std::optional<bool> entryExists(const char* operation, const std::string& entry);

/** Appends to a file, which is created if needed, in one write, so that lines of several processes never mix;
 *  false, with a complaint, when it could not be written. */
bool appendText(const char* operation, const std::string& path, const std::string& text);

/** The text on one line: line breaks and other control characters become escapes such as \n and \x1B. */
std::string onOneLine(const std::string& text);

/** A text argument of an event: in double quotes, on one line; NULL for a null pointer. */
std::string quoted(const char* text);

/** Appends "FUNCTION(ARGUMENTS) = STATUS" to events.log; false when that failed, with a complaint unless the
 *  status is kFailure: such a call has already said what was wrong. */
bool recordEvent(const char* function, std::initializer_list<std::string> arguments, int status);

/** Runs the body of a C function, which is given the function's name; an exception, which may not leave the
 *  function, becomes a complaint and a failure. */
template <typename Body>
int guarded(const char* function, Body body) noexcept
{
    try {
        return body(function);
    } catch (const std::exception& e) {
        complain(function, "unexpected failure", e.what());
        return kFailure;
    }
}

} // namespace kvplatform

#endif
