#ifndef KVPLATFORM_LANSEMAPHORE_HPP
#define KVPLATFORM_LANSEMAPHORE_HPP

#include "FileDescriptor.hpp"

#include <sys/types.h>

#include <mutex>

namespace kvplatform
{

/**
 * This process's part in the system-wide DHCP LAN semaphore: an exclusive lock on the file "lan.lock" of the
 * state directory. Each request locks an open file of its own, so threads exclude each other like processes,
 * and the kernel drops the lock of a process that dies.
 */
class LanSemaphore
{
  public:
    /** Waits for the lock; false, with a complaint, when it cannot be had. */
    bool request(const char* operation);

    /** Whether this process holds the lock. A forked child does not hold what its parent holds. */
    bool isHeld();

    /** Gives the lock back, which this process must hold. */
    void release();

  private:
    std::mutex m_mutex;
    FileDescriptor m_locked;
    pid_t m_holder = 0;
};

LanSemaphore& lanSemaphore();

} // namespace kvplatform

#endif
