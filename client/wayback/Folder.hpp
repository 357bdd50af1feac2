// The folder in which lanctl keeps what it must not lose. Only the owner can read it.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace lanctl::wayback
{

/// The folder, or a file in it, cannot be used; what() names it and says why.
class FolderError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

class Folder
{
  public:
    /// Makes the folder, and those above it, where they are missing. Throws FolderError.
    explicit Folder(std::string path);

    const std::string& path() const { return m_path; }
    std::string pathOf(const std::string& name) const { return m_path + "/" + name; }

    /// Writes the file whole or not at all: it is on the disk when this returns. Throws FolderError.
    void write(const std::string& name, const std::string& text) const;

    /// Gives a file another name at once and for good. Needs no space on the disk. Throws FolderError.
    void rename(const std::string& from, const std::string& to) const;

    /// Makes an empty file, or does nothing where it exists. Throws FolderError.
    void mark(const std::string& name) const;

    /// Removes the file; returns whether it was there.
    bool remove(const std::string& name) const;

    bool has(const std::string& name) const;
    std::optional<std::string> read(const std::string& name) const;

    /// All names in it, sorted.
    std::vector<std::string> names() const;

  private:
    void settle() const;

    std::string m_path;
};

/// Where the folders of all servers lie: $XDG_STATE_HOME/lanctl, or ~/.local/state/lanctl.
std::string stateHome();

/// The folder's name for a server of that name, whatever its characters: "pbx1", "10.0.0.5:5988".
std::string folderName(const std::string& server);

} // namespace lanctl::wayback
