// The commands that only read.
#include "apply/Reading.hpp"
#include "model/WantedText.hpp"
#include "shell/Commands.hpp"
#include "shell/Objects.hpp"
#include "shell/PlanText.hpp"
#include "shell/StateJson.hpp"
#include "shell/StateText.hpp"

#include <fstream>
#include <iostream>

namespace lanctl::shell
{

Exit show(const ConnectionChoice& choice, const std::vector<std::string>& objects, bool json)
{
    wire::Client client(connectionOptions(choice));
    const Shown shown = readObjects(client, objects);
    std::cout << (json ? stateJson(shown) : stateText(shown));
    return Exit::Done;
}

Exit exportState(const ConnectionChoice& choice, const std::string& file)
{
    wire::Client client(connectionOptions(choice));
    const std::string text = model::exportedText(apply::readState(client));
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

Exit diff(const ConnectionChoice& choice, const std::string& file)
{
    const model::WantedState wanted = wantedOfFile(file);
    wire::Client client(connectionOptions(choice));
    const plan::Plan plan = plan::plan(apply::readState(client), wanted);
    std::cout << changesText(plan.changes);
    return plan.changes.empty() ? Exit::Done : Exit::Differences;
}

} // namespace lanctl::shell
