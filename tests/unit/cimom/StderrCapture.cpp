#include "StderrCapture.hpp"

#include <unistd.h>

namespace cimom::test
{

StderrCapture::StderrCapture() : m_before(dup(STDERR_FILENO)), m_file(std::tmpfile())
{
    dup2(fileno(m_file), STDERR_FILENO);
}

StderrCapture::~StderrCapture()
{
    dup2(m_before, STDERR_FILENO);
    close(m_before);
    std::fclose(m_file);
}

// Both descriptors share one position, which is back at 0 afterwards, as is the file's size.
std::string StderrCapture::take()
{
    const off_t size = lseek(STDERR_FILENO, 0, SEEK_CUR);
    std::string text(static_cast<std::size_t>(size), '\0');
    const ssize_t read = pread(STDERR_FILENO, text.data(), text.size(), 0);
    text.resize(read > 0 ? static_cast<std::size_t>(read) : 0);
    lseek(STDERR_FILENO, 0, SEEK_SET);
    if (ftruncate(STDERR_FILENO, 0) != 0) {
        return "cannot empty the captured output";
    }
    return text;
}

} // namespace cimom::test
