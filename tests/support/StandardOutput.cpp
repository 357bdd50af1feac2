#include "StandardOutput.hpp"
#include "RealCalls.hpp"

#include <unistd.h>

#include <stdexcept>

namespace fakes
{

StandardOutput::StandardOutput() : m_collected(std::tmpfile())
{
    if (!m_collected)
        throw std::runtime_error("no temporary file for the standard output");
    std::fflush(stdout);
    m_former = dup(STDOUT_FILENO);
    dup2(fileno(m_collected), STDOUT_FILENO);
}

StandardOutput::~StandardOutput()
{
    std::fflush(stdout);
    dup2(m_former, STDOUT_FILENO);
    __real_close(m_former);
    __real_fclose(m_collected);
}

std::string StandardOutput::text() const
{
    std::fflush(stdout);
    std::string text;
    char part[256];
    ssize_t length = 0;
    while ((length = pread(fileno(m_collected), part, sizeof part, static_cast<off_t>(text.size()))) > 0)
        text.append(part, static_cast<std::size_t>(length));
    return text;
}

} // namespace fakes
