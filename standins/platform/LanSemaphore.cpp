#include "LanSemaphore.hpp"

#include "StateDirectory.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace kvplatform
{

namespace
{

LanSemaphore semaphore;

bool lock(int fd)
{
    int result = 0;
    do
        result = ::flock(fd, LOCK_EX);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

LanSemaphore& lanSemaphore()
{
    return semaphore;
}

bool LanSemaphore::request(const char* operation)
{
    const std::string path = statePath("lan.lock");
    FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
    if (!file || !lock(file.get())) {
        complain(operation, path, lastError());
        return false;
    }
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_locked = std::move(file);
    m_holder = ::getpid();
    return true;
}

bool LanSemaphore::isHeld()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_locked && m_holder == ::getpid();
}

void LanSemaphore::release()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    // Unlocked explicitly: a child forked in the meantime keeps the open file, but must not keep the lock.
    ::flock(m_locked.get(), LOCK_UN);
    m_locked.close();
}

} // namespace kvplatform
