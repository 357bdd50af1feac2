#include "wayback/Histories.hpp"

#include <algorithm>

namespace lanctl::wayback
{

namespace
{

/// Whether one of its changes was made on the server under that name, or moved it there.
bool tellsOf(const History& history, const std::string& server)
{
    const std::vector<Entry> entries = history.entries();
    return std::any_of(entries.begin(), entries.end(), [&](const Entry& entry) {
        return entry.server == server || (entry.movesTo == server && entry.result != Result::TakenBack);
    });
}

} // namespace

std::vector<History> allHistories()
{
    const Folder home(stateHome());
    std::vector<History> histories;
    for (const std::string& name : home.names())
        histories.emplace_back(Folder(home.pathOf(name)));
    return histories;
}

History historyOf(const std::string& server)
{
    History own(Folder(stateHome() + "/" + folderName(server)));
    if (!own.entries().empty())
        return own;
    for (History& other : allHistories())
        if (tellsOf(other, server))
            return std::move(other);
    return own;
}

} // namespace lanctl::wayback
