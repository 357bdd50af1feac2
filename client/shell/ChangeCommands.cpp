// The commands that change the server.
#include "apply/Reading.hpp"
#include "model/FromCim.hpp"
#include "model/WantedText.hpp"
#include "shell/Change.hpp"
#include "shell/Commands.hpp"
#include "shell/Terminal.hpp"

#include <iostream>

namespace lanctl::shell
{

namespace
{

model::WantedState parsed(const std::string& text, const std::string& where)
{
    try {
        return model::parseWanted(text);
    } catch (const model::BadWanted& e) {
        throw UsageError(where + ": " + e.what());
    }
}

} // namespace

model::WantedState wantedOfFile(const std::string& file)
{
    if (file != "-")
        return parsed(fileText(file, model::largestWantedFile), file);
    return parsed(fileText("/dev/stdin", model::largestWantedFile), "standard input");
}

Exit set(const ConnectionChoice& choice, const std::string& object,
         const std::vector<std::string>& assignments, const Agreement& agreement)
{
    model::WantedState wanted;
    try {
        for (const auto& assignment : assignments)
            model::wantAssignment(wanted, object, assignment);
    } catch (const model::BadWanted& e) {
        throw UsageError(e.what());
    }
    return change(choice, wanted, agreement);
}

Exit applyFile(const ConnectionChoice& choice, const std::string& file, const Agreement& agreement)
{
    const model::WantedState wanted = wantedOfFile(file);
    return change(choice, wanted, agreement);
}

Exit resetRouter(const ConnectionChoice& choice, const Agreement& agreement)
{
    wire::Client client(connectionOptions(choice));
    const model::Setting setting = apply::readSetting(client);
    std::cout << "The router card's reset button is pressed; traffic through it stops until it has started "
                 "again.\n";
    if (agreement.dryRun)
        return Exit::Differences;
    if (!agreement.yes && (!inputIsTerminal() || !outputIsTerminal()))
        throw UsageError("no terminal to ask on, so nothing was done; --yes agrees beforehand");
    if (!agreement.yes && !agreed("Reset?"))
        return Exit::NotAsWanted;
    std::cout << harmless(client.invokeMethod(model::nameOf(setting), "ResetRouter")) << "\n";
    return Exit::Done;
}

} // namespace lanctl::shell
