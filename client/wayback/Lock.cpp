#include "wayback/Lock.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace lanctl::wayback
{

std::optional<Lock> Lock::take(const Folder& folder)
{
    const std::string path = folder.pathOf("lock");
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        throw FolderError("cannot write " + path + ": " + std::strerror(errno));
    Lock lock(descriptor);
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return lock;
    if (errno != EWOULDBLOCK)
        throw FolderError("cannot lock " + path + ": " + std::strerror(errno));
    return std::nullopt;
}

Lock::Lock(Lock&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

Lock::~Lock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace lanctl::wayback
