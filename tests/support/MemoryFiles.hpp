#ifndef KV_TESTS_MEMORY_FILES_HPP
#define KV_TESTS_MEMORY_FILES_HPP

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

/// Files and directories that exist only in this process, so that a test or a fuzzer's input costs no system
/// call for them. As far as the product uses a file system they answer like one, with errno: whole files,
/// read or written anew. Each thread has its own files.
namespace fakes::memory
{

/// Makes the directory and its parents.
void makeDirectory(const std::string& path);

/// Forgets everything whose path begins with `root`.
void forgetAll(const std::string& root);

bool exists(const std::string& path);
std::optional<std::string> contentOf(const std::string& path); ///< nothing without such a file
bool write(const std::string& path, const std::string& text);

/// Mode "r" or "w". A directory can be opened, but not read.
FILE* open(const std::string& path, const std::string& mode);
int rename(const std::string& from, const std::string& to);
int remove(const std::string& path);

} // namespace fakes::memory

#endif
