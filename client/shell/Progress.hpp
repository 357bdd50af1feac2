// Shows on a terminal what lanctl waits for, and for how long. Shows nothing where errors go elsewhere.
#pragma once

#include <chrono>
#include <string>

namespace lanctl::shell
{

class Progress
{
  public:
    ~Progress() { end(); }

    /// lanctl waits for this from now on.
    void begin(const std::string& what);
    /// Shows the time that has passed. Quick answers are not worth a line.
    void update();
    /// Takes the line away.
    void end();

  private:
    std::string m_what;
    std::chrono::steady_clock::time_point m_since;
    bool m_isShown = false;
};

} // namespace lanctl::shell
