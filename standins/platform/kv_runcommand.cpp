#include "kv_runcommand.h"

#include "CommandSupervisor.hpp"
#include "FileDescriptor.hpp"
#include "StateDirectory.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace
{

using namespace kvplatform;

constexpr int kNotRun = -1;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
using Lines = std::unique_ptr<char*, Free>;

struct Result {
    std::string output;
    std::string error;
    int status = kNotRun;
};

/** The two ends of a pipe or of a socket pair. */
struct Ends {
    FileDescriptor first;
    FileDescriptor second;
};

int checked(int result, const char* what)
{
    if (result < 0)
        throw std::runtime_error(std::string(what) + ": " + lastError());
    return result;
}

/** The same open file under a number that the supervisor leaves alone; a host may have closed 0, 1 and 2. */
FileDescriptor lifted(FileDescriptor fd)
{
    if (fd.get() >= kFirstFreeDescriptor)
        return fd;
    return FileDescriptor(checked(::fcntl(fd.get(), F_DUPFD_CLOEXEC, kFirstFreeDescriptor), "dup"));
}

Ends lifted(const std::array<int, 2>& fds)
{
    FileDescriptor first(fds[0]);
    FileDescriptor second(fds[1]);
    return {lifted(std::move(first)), lifted(std::move(second))};
}

Ends makePipe()
{
    std::array<int, 2> fds = {};
    checked(::pipe2(fds.data(), O_CLOEXEC), "pipe");
    return lifted(fds);
}

Ends makeSocketPair()
{
    std::array<int, 2> fds = {};
    checked(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, fds.data()), "socketpair");
    return lifted(fds);
}

/** The command's standard input: a file in memory, so that nobody has to feed it while the command runs. */
FileDescriptor openInput(const char* input)
{
    if (input == nullptr)
        return lifted(FileDescriptor(checked(::open("/dev/null", O_RDONLY | O_CLOEXEC), "/dev/null")));
    FileDescriptor file(checked(::memfd_create("input", MFD_CLOEXEC), "memfd_create"));
    for (std::size_t left = std::strlen(input); left > 0;) {
        const auto written = static_cast<std::size_t>(checked(
            static_cast<int>(::write(file.get(), input, std::min<std::size_t>(left, 1U << 20U))), "write"));
        input += written;
        left -= written;
    }
    checked(static_cast<int>(::lseek(file.get(), 0, SEEK_SET)), "lseek");
    return lifted(std::move(file));
}

/** Appends at most limit bytes of those that wait in fd; the number read, 0 at the end of the stream. */
std::size_t readSome(int fd, std::string& text, std::size_t limit)
{
    std::array<char, 65536> buffer;
    const ssize_t got = ::read(fd, buffer.data(), std::min(limit, buffer.size()));
    if (got <= 0)
        return 0;
    text.append(buffer.data(), static_cast<std::size_t>(got));
    return static_cast<std::size_t>(got);
}

/** Takes what lies in the pipe at this moment. Waiting for its end would mean waiting for background
 * commands, which have it open too. */
void readRest(int fd, std::string& text)
{
    int waiting = 0;
    if (::ioctl(fd, FIONREAD, &waiting) != 0)
        return;
    for (auto left = static_cast<std::size_t>(waiting); left > 0;) {
        const std::size_t got = readSome(fd, text, left);
        if (got == 0)
            return;
        left -= got;
    }
}

int readStatus(int control)
{
    std::string bytes;
    int status = kNotRun;
    if (readSome(control, bytes, sizeof status) == sizeof status)
        std::memcpy(&status, bytes.data(), sizeof status);
    return status;
}

/** Reads both streams in turn, so that neither can fill up and stop the command, until the shell has ended.
 */
Result collect(int output, int error, int control)
{
    Result result;
    std::array<pollfd, 3> sources = {{{output, POLLIN, 0}, {error, POLLIN, 0}, {control, POLLIN, 0}}};
    while (true) {
        if (::poll(sources.data(), sources.size(), -1) < 0)
            continue;
        if (sources[2].revents != 0)
            break;
        if (sources[0].revents != 0 && readSome(output, result.output, std::string::npos) == 0)
            sources[0].fd = -1;
        if (sources[1].revents != 0 && readSome(error, result.error, std::string::npos) == 0)
            sources[1].fd = -1;
    }
    result.status = readStatus(control);
    readRest(output, result.output);
    readRest(error, result.error);
    return result;
}

Result run(const char* command, const char* input)
{
    Ends output = makePipe();
    Ends error = makePipe();
    Ends control = makeSocketPair();
    pid_t supervisor = -1;
    {
        const SupervisorEnds ends{openInput(input),        std::move(output.second),
                                  std::move(error.second), std::move(control.second),
                                  output.first.get(),      error.first.get()};
        supervisor = checked(startSupervisor(command, ends), "fork");
    }
    Result result = collect(output.first.get(), error.first.get(), control.first.get());
    ::shutdown(control.first.get(), SHUT_RDWR);
    reapSupervisor(supervisor);
    return result;
}

/** One block of memory: the array, then the lines that it points to. Null when there are none. */
Lines toLines(const std::string& text)
{
    if (text.empty())
        return nullptr;
    const auto breaks = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const std::size_t count = breaks + (text.back() == '\n' ? 0 : 1);
    const std::size_t arraySize = (count + 1) * sizeof(char*);
    Lines lines(static_cast<char**>(std::malloc(arraySize + text.size() + count)));
    if (!lines)
        throw std::bad_alloc();
    char** line = lines.get();
    char* target = reinterpret_cast<char*>(lines.get()) + arraySize;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        *line++ = target;
        target = std::copy(text.begin() + static_cast<std::ptrdiff_t>(start),
                           text.begin() + static_cast<std::ptrdiff_t>(end), target);
        *target++ = '\0';
        start = end;
    }
    *line = nullptr;
    return lines;
}

int runAndDeliver(const char* function, const char* command, const char* input, char*** outLines,
                  char*** errLines)
{
    if (command == nullptr || outLines == nullptr || errLines == nullptr)
        return kNotRun;
    try {
        const Result result = run(command, input);
        Lines output = toLines(result.output);
        Lines error = toLines(result.error);
        *outLines = output.release();
        *errLines = error.release();
        return result.status;
    } catch (const std::exception& e) {
        complain(function, command, e.what());
        return kNotRun;
    }
}

} // namespace

int runcommand(const char* command, const char* input, char*** outLines, char*** errLines)
{
    return guarded(__func__, [&](const char* function) {
        if (outLines != nullptr)
            *outLines = nullptr;
        if (errLines != nullptr)
            *errLines = nullptr;
        const int status = runAndDeliver(function, command, input, outLines, errLines);
        recordEvent(function, {quoted(command)}, status);
        return status;
    });
}

void freeresultbuf(char** lines)
{
    std::free(lines);
}
