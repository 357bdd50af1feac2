// A folder of its own for a test, gone at its end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace lanctl
{

class TemporaryFolder
{
  public:
    TemporaryFolder()
    {
        // In memory, where bringing a file to the disk takes no time.
        std::string pattern = "/dev/shm/lanctl-XXXXXX";
        m_path = mkdtemp(pattern.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return m_path; }

  private:
    std::string m_path;
};

} // namespace lanctl
