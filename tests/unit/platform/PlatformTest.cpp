#include "PlatformTest.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/** In memory where possible: the registry waits for the disk at every write. */
std::filesystem::path temporaryRoot()
{
    const char* memory = "/dev/shm";
    return ::access(memory, W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
}

std::string makeTemporaryDirectory()
{
    std::string path = (temporaryRoot() / "kvplatform-XXXXXX").string();
    if (::mkdtemp(path.data()) == nullptr)
        throw std::filesystem::filesystem_error("mkdtemp", path,
                                                std::error_code(errno, std::generic_category()));
    return path;
}

} // namespace

PlatformTest::PlatformTest() : m_root(makeTemporaryDirectory()), m_stateDir(m_root + "/state")
{
    std::filesystem::create_directory(m_stateDir);
    ::setenv("KV_STATE_DIR", m_stateDir.c_str(), 1);
}

PlatformTest::~PlatformTest()
{
    ::unsetenv("KV_STATE_DIR");
    std::filesystem::remove_all(m_root);
}

std::string PlatformTest::contents(const std::string& entry) const
{
    return readFile(path(entry));
}

void PlatformTest::write(const std::string& entry, const std::string& text) const
{
    std::ofstream(path(entry), std::ios::binary) << text;
}

bool PlatformTest::exists(const std::string& entry) const
{
    return std::filesystem::exists(path(entry));
}

void PlatformTest::loseStateDir()
{
    std::filesystem::remove_all(m_stateDir);
}

std::string PlatformTest::complaints(const std::function<void()>& function) const
{
    const std::string caught = m_root + "/stderr";
    const int original = ::dup(STDERR_FILENO);
    const int file = ::open(caught.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
    ::dup2(file, STDERR_FILENO);
    ::close(file);
    function();
    ::dup2(original, STDERR_FILENO);
    ::close(original);
    return readFile(caught);
}
