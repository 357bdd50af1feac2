// Answers of the original to calls, and their comparison with those of the library under test.
#ifndef TESTS_UNIT_OPENWBEM_RECORDED_RECORDING_HPP
#define TESTS_UNIT_OPENWBEM_RECORDED_RECORDING_HPP

#include "Shown.hpp"
#include <regex>
#include <string>
#include <unordered_map>
#include <vector>

namespace recorded
{

// Calls that are not made or answered otherwise, and are to be as many as they are. One that begins to agree
// makes the test fail.
struct Excepted {
    const char* reason;
    const char* calls; // a regular expression that the whole text of such a call matches
    size_t number;
};

class Recording
{
  public:
    Recording(const std::string& part, std::vector<Excepted> excepted = {});

    // Makes a call under its recorded text. The answer is what it returns, or the exception that it throws.
    template <class Call>
    void check(const std::string& call, Call make)
    {
        std::string answer;
        try {
            answer = shown(make());
        } catch (const Exception& e) {
            answer = "throws " + shown(e);
        }
        compare(call, answer);
    }

    // The texts in quotation marks between beginning and end of the recorded calls, in their order.
    std::vector<std::string> textsBetween(const std::string& beginning, const std::string& end) const;

    // All recorded calls have been made but for those excepted, which are as many as foreseen.
    void expectComplete(size_t made) const;

  private:
    struct Entry {
        std::string answer;
        bool isMade = false;
        bool isDifferent = false;
    };

    void compare(const std::string& call, const std::string& answer);
    size_t groupOf(const std::string& call) const; // of those excepted; their number when it is in none

    std::string m_part;
    std::vector<Excepted> m_excepted;
    std::vector<std::regex> m_patterns; // theirs
    std::vector<std::string> m_calls;   // in the recorded order
    std::unordered_map<std::string, Entry> m_entries;
    size_t m_shown = 0;
};

} // namespace recorded

#endif
