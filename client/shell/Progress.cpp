#include "shell/Progress.hpp"

#include "shell/Terminal.hpp"

#include <iostream>

namespace lanctl::shell
{

namespace
{

constexpr std::chrono::milliseconds worthShowing{300};

} // namespace

void Progress::begin(const std::string& what)
{
    end();
    m_what = what;
    m_since = std::chrono::steady_clock::now();
}

void Progress::update()
{
    const auto passed = std::chrono::steady_clock::now() - m_since;
    if (m_what.empty() || passed < worthShowing || !errorsAreOnTerminal())
        return;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(passed).count();
    std::cerr << "\r\x1b[K" << harmless(m_what) << " ... " << seconds << " s" << std::flush;
    m_isShown = true;
}

void Progress::end()
{
    if (m_isShown)
        std::cerr << "\r\x1b[K" << std::flush;
    m_isShown = false;
    m_what.clear();
}

} // namespace lanctl::shell
