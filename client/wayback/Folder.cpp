#include "wayback/Folder.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace lanctl::wayback
{

namespace
{

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t ownersFolder = ownerOnly | S_IXUSR;

[[noreturn]] void fail(const std::string& what, const std::string& path)
{
    throw FolderError("cannot " + what + " " + path + ": " + std::strerror(errno));
}

/// Closes a descriptor at the end of the scope.
class Descriptor
{
  public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

  private:
    int m_number;
};

void writeAll(int file, const std::string& text, const std::string& path)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = ::write(file, text.data() + done, text.size() - done);
        if (count < 0 && errno != EINTR)
            fail("write", path);
        done += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
}

void makeFolder(const std::string& path)
{
    if (mkdir(path.c_str(), ownersFolder) != 0 && errno != EEXIST)
        fail("make the folder", path);
}

} // namespace

Folder::Folder(std::string path) : m_path(std::move(path))
{
    for (auto slash = m_path.find('/', 1); slash != std::string::npos; slash = m_path.find('/', slash + 1))
        makeFolder(m_path.substr(0, slash));
    makeFolder(m_path);
}

void Folder::write(const std::string& name, const std::string& text) const
{
    const std::string path = pathOf(name);
    const std::string unfinished = path + ".new";
    try {
        const Descriptor file(open(unfinished.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, ownerOnly));
        if (!file.isOpen())
            fail("write", unfinished);
        writeAll(file.number(), text, unfinished);
        if (fsync(file.number()) != 0)
            fail("write", unfinished);
    } catch (const FolderError&) {
        unlink(unfinished.c_str());
        throw;
    }
    if (::rename(unfinished.c_str(), path.c_str()) != 0)
        fail("write", path);
    settle();
}

void Folder::rename(const std::string& from, const std::string& to) const
{
    if (::rename(pathOf(from).c_str(), pathOf(to).c_str()) != 0)
        fail("rename", pathOf(from));
    settle();
}

void Folder::mark(const std::string& name) const
{
    const Descriptor file(open(pathOf(name).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, ownerOnly));
    if (!file.isOpen())
        fail("write", pathOf(name));
}

bool Folder::remove(const std::string& name) const
{
    return unlink(pathOf(name).c_str()) == 0;
}

bool Folder::has(const std::string& name) const
{
    return access(pathOf(name).c_str(), F_OK) == 0;
}

std::optional<std::string> Folder::read(const std::string& name) const
{
    std::ifstream in(pathOf(name), std::ios::binary);
    if (!in)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), {});
}

std::vector<std::string> Folder::names() const
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(m_path, error))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

/// Brings the names in the folder to the disk.
void Folder::settle() const
{
    const Descriptor folder(open(m_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen() || fsync(folder.number()) != 0)
        fail("write", m_path);
}

std::string stateHome()
{
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr &&
        *state == '/') // a relative one is to be ignored, says the XDG base directory standard
        return std::string(state) + "/lanctl";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0')
        throw FolderError("neither XDG_STATE_HOME nor HOME says where to keep the state before a change");
    return std::string(home) + "/.local/state/lanctl";
}

std::string folderName(const std::string& server)
{
    static const char* const digits = "0123456789ABCDEF";
    std::string name;
    for (const char character : server) {
        const auto byte = static_cast<unsigned char>(character);
        const bool plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                           (byte >= 'a' && byte <= 'z') || std::strchr("-_:[]", character) != nullptr ||
                           (character == '.' && !name.empty());
        if (plain && character != '\0')
            name += character;
        else
            name += {'%', digits[byte >> 4U], digits[byte & 15U]};
    }
    return name;
}

} // namespace lanctl::wayback
