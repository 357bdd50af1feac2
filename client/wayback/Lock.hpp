// One change at a time: the lock that a change holds from before it is planned until nobody can take it back.
#pragma once

#include "wayback/Folder.hpp"

#include <optional>

namespace lanctl::wayback
{

/// Held until the last process that has it ends, however it ends. A forked process has it too.
class Lock
{
  public:
    /// The folder's lock, or nothing while somebody else has it. Throws FolderError.
    static std::optional<Lock> take(const Folder& folder);

    /// Whether somebody has it.
    static bool isHeld(const Folder& folder);

    Lock(Lock&& other) noexcept;
    Lock& operator=(Lock&& other) = delete;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock();

    int descriptor() const { return m_descriptor; }

  private:
    explicit Lock(const Folder& folder);
    bool takeNow(int kind) const;

    int m_descriptor;
};

} // namespace lanctl::wayback
