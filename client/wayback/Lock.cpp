#include "wayback/Lock.hpp"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace lanctl::wayback
{

namespace
{

// A process that only looks whether the lock is held has it for a moment.
constexpr int tries = 5;
constexpr std::chrono::milliseconds betweenTries{20};

} // namespace

Lock::Lock(const Folder& folder)
    : m_descriptor(open(folder.pathOf("lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR))
{
    if (m_descriptor < 0)
        throw FolderError("cannot write " + folder.pathOf("lock") + ": " + std::strerror(errno));
}

bool Lock::takeNow(int kind) const
{
    if (flock(m_descriptor, kind | LOCK_NB) == 0)
        return true;
    if (errno != EWOULDBLOCK)
        throw FolderError(std::string("cannot lock the history: ") + std::strerror(errno));
    return false;
}

std::optional<Lock> Lock::take(const Folder& folder)
{
    Lock lock(folder);
    for (int i = 0; i < tries; ++i) {
        if (lock.takeNow(LOCK_EX))
            return lock;
        std::this_thread::sleep_for(betweenTries);
    }
    return std::nullopt;
}

bool Lock::isHeld(const Folder& folder)
{
    return !Lock(folder).takeNow(LOCK_SH);
}

Lock::Lock(Lock&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

Lock::~Lock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace lanctl::wayback
