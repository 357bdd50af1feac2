// The changes of one server: what each was, who made it, how it ended, and the state before it.
//
// A change is two files. "000012.yaml" is the state before it, which `lanctl apply` reads. "000012.open.json"
// tells of the change itself; its middle part is the result. A result is set by renaming the file. That works
// on a full disk, too, and is done wholly or not at all.
#pragma once

#include "wayback/Folder.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lanctl::wayback
{

enum class Result {
    Open, // being made, waiting for its confirmation, on its way back, or cut off in the middle of these
    Done, // as wanted, without a confirmation asked for
    NotAsWanted, // the server refused, or its state was not as wanted afterwards
    Confirmed,
    TakenBack,
    Abandoned, // neither confirmed nor taken back: somebody gave up
};

/// "open", "done", "not-as-wanted", "confirmed", "taken-back", "abandoned".
std::string resultText(Result result);

/// How the server can be reached: by a URL, and at an address other than the URL's where one is given.
struct Way {
    std::string url;
    std::string address;
};

struct Entry {
    int number = 0;
    Result result = Result::Open;
    std::string time; // of this machine's clock, in UTC: "2026-03-01T12:00:00Z"
    std::string user;
    std::string server;
    std::vector<std::string> plan;     // "eth1 mtu: 1500 -> 1400"
    std::vector<std::string> objects;  // what the change touches
    std::vector<std::string> hardware; // the server's MAC addresses, by which it is known again
    std::vector<Way> ways;             // to be tried in this order when it is taken back
    std::string movesTo;               // the server's host and port afterwards, when it is called by them
    int confirmSeconds = 0;            // 0: no confirmation is asked for
};

class History
{
  public:
    explicit History(Folder folder) : m_folder(std::move(folder)) {}

    const Folder& folder() const { return m_folder; }

    /// Keeps the state before a change, then the entry, which is open from now on; both are on the disk when
    /// this returns. Older entries than the last fifty go. Returns the entry's number. Throws FolderError.
    int begin(Entry entry, const std::string& formerState) const;

    /// Sets the result of an open entry. Throws FolderError.
    void end(int number, Result result) const;

    /// All entries, the oldest first. A file that is none is passed over.
    std::vector<Entry> entries() const;
    std::optional<Entry> entry(int number) const;
    /// The one that is open, the oldest where several are.
    std::optional<Entry> openEntry() const;

    std::string formerStatePath(int number) const;
    /// Throws FolderError when it is not there.
    std::string formerState(int number) const;

  private:
    std::optional<Entry> find(const std::function<bool(const Entry&)>& isWanted) const;
    void prune() const;

    Folder m_folder;
};

} // namespace lanctl::wayback
