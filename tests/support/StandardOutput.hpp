#ifndef KV_TESTS_STANDARDOUTPUT_HPP
#define KV_TESTS_STANDARDOUTPUT_HPP

#include <cstdio>
#include <string>

namespace fakes
{

/// Collects what is printed on standard output while it lives. GoogleTest's own capturing goes through the
/// calls that the fakes take over.
class StandardOutput
{
  public:
    StandardOutput();
    ~StandardOutput();
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    std::string text() const; ///< everything printed so far

  private:
    std::FILE* m_collected;
    int m_former = -1;
};

} // namespace fakes

#endif
