#include "MemoryFiles.hpp"

#include <algorithm>
#include <cerrno>
#include <map>

namespace fakes::memory
{
namespace
{

/// What a file holds; a directory has none. Streams hold it, too, so that they survive its renaming and
/// removal.
using Content = std::shared_ptr<std::string>;

thread_local std::map<std::string, Content> entries;

struct OpenFile {
    Content content; ///< none for a directory
    std::size_t position = 0;
};

bool isDirectory(const std::string& path)
{
    const auto found = entries.find(path);
    return found != entries.end() && !found->second;
}

std::string parentOf(const std::string& path)
{
    return path.substr(0, path.rfind('/'));
}

int refuse(int code)
{
    errno = code;
    return -1;
}

ssize_t readSome(void* cookie, char* buffer, std::size_t size)
{
    auto& file = *static_cast<OpenFile*>(cookie);
    if (!file.content)
        return refuse(EISDIR);
    const std::size_t begin = std::min(file.position, file.content->size());
    const std::size_t count = file.content->copy(buffer, size, begin);
    file.position = begin + count;
    return static_cast<ssize_t>(count);
}

ssize_t writeSome(void* cookie, const char* buffer, std::size_t size)
{
    auto& file = *static_cast<OpenFile*>(cookie);
    file.content->resize(std::max(file.content->size(), file.position));
    file.content->replace(file.position, size, buffer, size);
    file.position += size;
    return static_cast<ssize_t>(size);
}

int closeFile(void* cookie)
{
    const std::unique_ptr<OpenFile> closed(static_cast<OpenFile*>(cookie));
    return 0;
}

FILE* streamOn(const Content& content, const std::string& mode)
{
    auto file = std::make_unique<OpenFile>();
    file->content = content;
    FILE* stream = fopencookie(file.get(), mode.c_str(), {readSome, writeSome, nullptr, closeFile});
    if (stream != nullptr)
        static_cast<void>(file.release()); // closeFile has it now
    return stream;
}

/// The emptied or new file, or nothing, with errno.
Content emptied(const std::string& path)
{
    if (isDirectory(path) || !isDirectory(parentOf(path))) {
        errno = isDirectory(path) ? EISDIR : ENOENT;
        return nullptr;
    }
    Content& content = entries[path];
    if (content)
        content->clear();
    else
        content = std::make_shared<std::string>();
    return content;
}

} // namespace

void makeDirectory(const std::string& path)
{
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        entries.emplace(path.substr(0, end), nullptr);
    entries.emplace(path, nullptr);
}

void forgetAll(const std::string& root)
{
    auto first = entries.lower_bound(root);
    auto last = first;
    while (last != entries.end() && last->first.compare(0, root.size(), root) == 0)
        ++last;
    entries.erase(first, last);
}

bool exists(const std::string& path)
{
    return entries.count(path) != 0;
}

std::optional<std::string> contentOf(const std::string& path)
{
    const auto found = entries.find(path);
    if (found == entries.end() || !found->second)
        return std::nullopt;
    return *found->second;
}

bool write(const std::string& path, const std::string& text)
{
    const Content content = emptied(path);
    if (content)
        *content = text;
    return content != nullptr;
}

FILE* open(const std::string& path, const std::string& mode)
{
    if (mode == "w") {
        const Content content = emptied(path);
        return content ? streamOn(content, mode) : nullptr;
    }
    const auto found = entries.find(path);
    if (mode != "r" || found == entries.end()) {
        errno = mode == "r" ? ENOENT : EINVAL;
        return nullptr;
    }
    return streamOn(found->second, mode);
}

int rename(const std::string& from, const std::string& to)
{
    const auto found = entries.find(from);
    if (found == entries.end() || !isDirectory(parentOf(to)))
        return refuse(ENOENT);
    if (!found->second || isDirectory(to))
        return refuse(EISDIR);
    const Content moved = found->second;
    entries.erase(found);
    entries[to] = moved;
    return 0;
}

int remove(const std::string& path)
{
    const auto found = entries.find(path);
    if (found == entries.end())
        return refuse(ENOENT);
    const auto next = std::next(found);
    if (next != entries.end() && next->first.compare(0, path.size() + 1, path + "/") == 0)
        return refuse(ENOTEMPTY);
    entries.erase(found);
    return 0;
}

} // namespace fakes::memory
