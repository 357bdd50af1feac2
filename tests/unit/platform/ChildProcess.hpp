#ifndef CHILDPROCESS_HPP
#define CHILDPROCESS_HPP

#include <sys/types.h>

#include <functional>

/** A forked process. It runs the function and ends with its result as exit status; an exception gives 255. */
class ChildProcess
{
  public:
    explicit ChildProcess(const std::function<int()>& function);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /** Kills a process that is still running. */
    ~ChildProcess();

    void kill() const;

    /** The exit status once it has ended; 256 and the signal's number when a signal ended it. */
    int wait();

  private:
    pid_t m_pid;
};

/** The exit status of a process that runs the function. */
int inChild(const std::function<int()>& function);

/** Leaves this process, a child, no more than a number of free descriptors. */
void leaveDescriptors(int count);

/** Interrupts this process's system calls, which are not restarted, every millisecond. */
void interruptAllTheTime();

/** A pipe between test processes: one tells, another waits to be told. */
class Signal
{
  public:
    Signal();
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal();
    void send() const;
    void wait() const;

  private:
    int m_read = -1;
    int m_write = -1;
};

#endif
