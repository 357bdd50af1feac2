// The commands that change: plan, agreement, carrying out, reading back.
#include "apply/Apply.hpp"
#include "apply/Reading.hpp"
#include "model/FromCim.hpp"
#include "model/WantedText.hpp"
#include "shell/Commands.hpp"
#include "shell/Complaint.hpp"
#include "shell/PlanText.hpp"
#include "shell/Progress.hpp"
#include "shell/Terminal.hpp"

#include <iostream>
#include <iterator>

namespace lanctl::shell
{

namespace
{

constexpr const char* nothingChanged = "Nothing was changed.";

/// A change on its way from the wanted state to the server.
class Change
{
  public:
    Change(const ConnectionChoice& choice, const model::WantedState& wanted, const Agreement& agreement)
        : m_wanted(wanted), m_agreement(agreement), m_options(optionsOf(choice)), m_client(m_options)
    {
    }

    Exit run();

  private:
    wire::ConnectionOptions optionsOf(const ConnectionChoice& choice);
    void makePlan();
    bool agreedByUser();
    Exit carryOut();
    apply::Observer observer();

    const model::WantedState& m_wanted;
    const Agreement& m_agreement;
    Progress m_progress;
    wire::ConnectionOptions m_options;
    wire::Client m_client;
    model::ServerState m_before;
    plan::Plan m_plan;
};

wire::ConnectionOptions Change::optionsOf(const ConnectionChoice& choice)
{
    wire::ConnectionOptions options = connectionOptions(choice);
    options.whileWaiting = [this] {
        m_progress.update();
        return true;
    };
    return options;
}

void Change::makePlan()
{
    m_before = apply::readState(m_client);
    m_plan = plan::plan(m_before, m_wanted, m_client.connection().peerAddress());
}

Exit Change::run()
{
    makePlan();
    if (m_plan.asWanted()) {
        std::cout << "Nothing to do.\n";
        return Exit::Done;
    }
    std::cout << planText(m_plan);
    if (!m_plan.refusals.empty()) {
        std::cout << nothingChanged << "\n";
        return Exit::Usage;
    }
    if (m_agreement.dryRun)
        return Exit::Differences;
    if (m_plan.requests.empty()) {
        std::cout << nothingChanged << "\n";
        return Exit::NotAsWanted;
    }
    if (!agreedByUser()) {
        std::cout << nothingChanged << "\n";
        return Exit::NotAsWanted;
    }
    return carryOut();
}

/// Somebody else may have changed the server while the question stood: then it is asked again, about the new
/// plan.
bool Change::agreedByUser()
{
    if (m_agreement.yes)
        return true;
    if (!inputIsTerminal() || !outputIsTerminal())
        throw UsageError("no terminal to ask on, so nothing was changed; --yes agrees beforehand");
    while (agreed("Apply?")) {
        const std::string shown = planText(m_plan);
        makePlan();
        if (planText(m_plan) == shown)
            return true;
        std::cout << "The server has changed meanwhile. The plan is now:\n" << planText(m_plan);
        if (!m_plan.refusals.empty() || m_plan.requests.empty())
            return false;
    }
    return false;
}

apply::Observer Change::observer()
{
    apply::Observer observer;
    observer.sending = [this](const plan::Request& request) {
        m_progress.begin("Changing " + request.object + " (" + impactText(request.impact) + ")");
    };
    observer.readingBack = [this] { m_progress.begin("Reading back"); };
    observer.following = [this](const std::string& address) {
        m_progress.begin("Looking for the server at " + address);
    };
    return observer;
}

Exit Change::carryOut()
{
    const apply::Outcome outcome =
        apply::carryOut(m_client, m_before, m_wanted, m_plan, observer(), m_options.timeLimit);
    m_progress.end();
    std::ostream& out = outcome.done() ? std::cout : std::cerr;
    out << outcomeText(outcome, m_plan);
    if (outcome.unread || outcome.stopped)
        return Exit::NoAnswer;
    return outcome.done() ? Exit::Done : Exit::NotAsWanted;
}

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
    return Change(choice, wanted, agreement).run();
}

Exit applyFile(const ConnectionChoice& choice, const std::string& file, const Agreement& agreement)
{
    const model::WantedState wanted = wantedOfFile(file);
    return Change(choice, wanted, agreement).run();
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
