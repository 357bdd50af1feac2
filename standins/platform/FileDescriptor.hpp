#ifndef KVPLATFORM_FILEDESCRIPTOR_HPP
#define KVPLATFORM_FILEDESCRIPTOR_HPP

#include <unistd.h>

#include <utility>

namespace kvplatform
{

/** Owns one file descriptor and closes it; -1 stands for none. */
class FileDescriptor
{
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : m_fd(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_fd(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    int get() const { return m_fd; }
    explicit operator bool() const { return m_fd >= 0; }
    int release() { return std::exchange(m_fd, -1); }
    void close()
    {
        if (m_fd >= 0)
            ::close(release());
    }

  private:
    int m_fd = -1;
};

} // namespace kvplatform

#endif
