// The commands that only read.
#include "apply/Reading.hpp"
#include "model/Export.hpp"
#include "shell/Commands.hpp"
#include "shell/Objects.hpp"
#include "shell/PlanText.hpp"
#include "shell/StateText.hpp"
#include "json/PlanJson.hpp"

#include <fstream>
#include <iostream>

namespace lanctl::shell
{

namespace
{

json::Json shownJson(const Shown& shown)
{
    json::Json object = json::Json::object();
    for (const auto& endpoint : shown.endpoints)
        object["endpoints"].push_back(json::toJson(endpoint));
    if (shown.setting)
        object["lan"] = json::toJson(*shown.setting);
    if (shown.marking)
        object["marking"] = json::toJson(*shown.marking);
    return object;
}

bool isJsonFile(const std::string& name)
{
    const std::string ending = ".json";
    return name.size() > ending.size() &&
           name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
}

} // namespace

Exit show(const ConnectionChoice& choice, const std::vector<std::string>& objects, bool asJson)
{
    wire::Client client(connectionOptions(choice));
    const Shown shown = readObjects(client, objects);
    std::cout << (asJson ? json::text(shownJson(shown)) : stateText(shown));
    return Exit::Done;
}

Exit exportState(const ConnectionChoice& choice, const std::string& file, bool asJson)
{
    wire::Client client(connectionOptions(choice));
    const model::ServerState state = apply::readState(client);
    const std::string text =
        asJson || isJsonFile(file) ? json::text(json::wantedJson(state)) : model::exportedText(state);
    if (file.empty() || file == "-") {
        std::cout << text;
        return Exit::Done;
    }
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << text << std::flush;
    if (!out)
        throw UsageError("cannot write " + file);
    return Exit::Done;
}

Exit diff(const ConnectionChoice& choice, const std::string& file, bool asJson)
{
    const model::WantedState wanted = wantedOfFile(file);
    wire::Client client(connectionOptions(choice));
    const model::ServerState state = apply::readState(client);
    const std::string peer = client.connection().peerAddress();
    const plan::Plan plan = plan::plan(state, wanted, peer);
    std::cout << (asJson ? json::text(json::toJson(plan, plan::reach(plan, state, peer)))
                         : changesText(plan.changes));
    return plan.changes.empty() ? Exit::Done : Exit::Differences;
}

} // namespace lanctl::shell
