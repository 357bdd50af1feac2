#include "web/Command.hpp"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace lanctl::web
{

namespace
{

using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

[[noreturn]] void failed(int error)
{
    throw std::system_error(error, std::generic_category(), "cannot run lanctl");
}

/// A file without a name. Unlike a pipe it never makes one side wait for the other.
File unnamedFile()
{
    File file(std::tmpfile(), &std::fclose);
    if (!file)
        failed(errno);
    fcntl(fileno(file.get()), F_SETFD, FD_CLOEXEC);
    return file;
}

std::string contentOf(const File& file)
{
    std::string content;
    std::array<char, 4096> part{};
    std::rewind(file.get());
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), file.get()))
        content.append(part.data(), count);
    return content;
}

/// What the new process has as standard input, output and errors.
class Streams
{
  public:
    Streams(const File& in, const File& out, const File& errors)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, fileno(in.get()), STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, fileno(out.get()), STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, fileno(errors.get()), STDERR_FILENO);
    }
    ~Streams() { posix_spawn_file_actions_destroy(&m_actions); }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;

    const posix_spawn_file_actions_t* actions() const { return &m_actions; }

  private:
    posix_spawn_file_actions_t m_actions{};
};

} // namespace

Finished runLanctl(const std::vector<std::string>& arguments, const std::string& input)
{
    const File in = unnamedFile();
    const File out = unnamedFile();
    const File errors = unnamedFile();
    if (std::fwrite(input.data(), 1, input.size(), in.get()) != input.size() || std::fflush(in.get()) != 0)
        failed(errno);
    std::rewind(in.get());

    std::string name = "lanctl";
    std::vector<std::string> copies = arguments;
    std::vector<char*> argv{name.data()};
    for (std::string& copy : copies)
        argv.push_back(copy.data());
    argv.push_back(nullptr);

    const Streams streams(in, out, errors);
    pid_t pid = 0;
    const int error = posix_spawn(&pid, "/proc/self/exe", streams.actions(), nullptr, argv.data(), environ);
    if (error != 0)
        failed(error);
    int status = 0;
    while (waitpid(pid, &status, 0) < 0)
        if (errno != EINTR)
            failed(errno);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(out), contentOf(errors)};
}

} // namespace lanctl::web
