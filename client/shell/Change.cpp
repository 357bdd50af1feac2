#include "shell/Change.hpp"

#include "apply/Apply.hpp"
#include "apply/Reading.hpp"
#include "plan/Reach.hpp"
#include "shell/Countdown.hpp"
#include "shell/PlanText.hpp"
#include "shell/Progress.hpp"
#include "shell/Terminal.hpp"
#include "wayback/Histories.hpp"
#include "wayback/RevocableChange.hpp"
#include "json/PlanJson.hpp"

#include <iostream>

namespace lanctl::shell
{

namespace
{

constexpr const char* nothingChanged = "Nothing was changed.\n";

class Change
{
  public:
    Change(const ConnectionChoice& choice, const model::WantedState& wanted, const Agreement& agreement,
           std::optional<int> endsEntry)
        : m_wanted(wanted), m_agreement(agreement), m_endsEntry(endsEntry), m_label(serverLabel(choice)),
          m_options(optionsOf(choice)), m_client(m_options)
    {
        for (const std::string& via : agreement.revertVia)
            serverAddress(via);
    }

    Exit run();

  private:
    Exit planned();
    void tell(const std::string& text) const;
    void tellOutcome(const apply::Outcome& outcome, int number);
    wire::ConnectionOptions optionsOf(const ConnectionChoice& choice);
    void makePlan();
    std::string shownPlan();
    plan::Reach reach();
    bool couldCutTheOnlyWay() { return m_agreement.revertVia.empty() && reach().couldCut(); }
    bool agreedByUser();
    Exit carryOut();
    apply::Outcome carryOutRevocably(wayback::RevocableChange& revocable);
    Exit result(const apply::Outcome& outcome) const;
    apply::Observer observer();

    const model::WantedState& m_wanted;
    const Agreement& m_agreement;
    std::optional<int> m_endsEntry;
    std::string m_label;
    Progress m_progress;
    wire::ConnectionOptions m_options;
    wire::Client m_client;
    model::ServerState m_before;
    plan::Plan m_plan;
    json::Json m_told; // all of it, for programs
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

plan::Reach Change::reach()
{
    return plan::reach(m_plan, m_before, m_client.connection().peerAddress());
}

std::string Change::shownPlan()
{
    std::string text = planText(m_plan);
    if (!m_plan.requests.empty() && couldCutTheOnlyWay())
        text += coloured("This can cut the connection to the server: ", Colour::Red) + harmless(reach().why) +
                "\n";
    return text;
}

void Change::tell(const std::string& text) const
{
    if (!m_agreement.json)
        std::cout << text << std::flush;
}

Exit Change::run()
{
    makePlan();
    m_told["changed"] = false;
    m_told["plan"] = json::toJson(m_plan, reach());
    const Exit exit = planned();
    if (m_agreement.json)
        std::cout << json::text(m_told) << std::flush;
    return exit;
}

Exit Change::planned()
{
    if (m_plan.asWanted()) {
        tell("Nothing to do.\n");
        return Exit::Done;
    }
    tell(shownPlan());
    if (!m_plan.refusals.empty()) {
        tell(nothingChanged);
        return Exit::Usage;
    }
    if (m_agreement.dryRun)
        return Exit::Differences;
    if (m_plan.requests.empty() || !agreedByUser()) {
        tell(nothingChanged);
        return Exit::NotAsWanted;
    }
    return carryOut();
}

/// Somebody else may have changed the server while the question waited. Then the user is asked again, about
/// the new plan.
bool Change::agreedByUser()
{
    if (m_agreement.yes)
        return true;
    if (m_agreement.json || !inputIsTerminal() || !outputIsTerminal())
        throw UsageError("no terminal to ask on, so nothing was changed; --yes agrees beforehand");
    while (agreed("Apply?") &&
           (!couldCutTheOnlyWay() || agreed("Apply although it can cut the connection?"))) {
        const std::string shown = planText(m_plan);
        makePlan();
        if (planText(m_plan) == shown)
            return true;
        std::cout << "The server has changed meanwhile. The plan is now:\n" << shownPlan();
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
    const wayback::History history = wayback::historyOf(m_label);
    wayback::Keeping keeping;
    keeping.server = m_label;
    keeping.countdown = std::chrono::seconds(m_agreement.confirmSeconds);
    keeping.revertVia = m_agreement.revertVia;
    keeping.endsEntry = m_endsEntry;
    wayback::RevocableChange revocable(history, keeping,
                                       {m_before, m_plan, m_options, m_client.connection().peerAddress()});
    const apply::Outcome outcome = carryOutRevocably(revocable);
    tellOutcome(outcome, revocable.number());
    if (!revocable.carriedOut(outcome))
        return result(outcome);
    if (m_agreement.json)
        return result(outcome); // a program that reads JSON confirms with a command of its own
    return waitForConfirmation(history, revocable.number(), result(outcome));
}

void Change::tellOutcome(const apply::Outcome& outcome, int number)
{
    m_told["changed"] = true;
    m_told["outcome"] = json::toJson(outcome);
    m_told["number"] = number;
    m_told["confirm"] = m_agreement.confirmSeconds;
    if (!m_agreement.json)
        (outcome.done() ? std::cout : std::cerr) << outcomeText(outcome, m_plan) << std::flush;
}

/// A change that fails before anything is sent needs no countdown.
apply::Outcome Change::carryOutRevocably(wayback::RevocableChange& revocable)
{
    try {
        apply::Outcome outcome =
            apply::carryOut(m_client, m_before, m_wanted, m_plan, observer(), m_options.timeLimit);
        m_progress.end();
        return outcome;
    } catch (const wire::Failure& e) {
        if (e.kind() != wire::Failure::Kind::Cancelled)
            revocable.nothingSent();
        throw;
    }
}

Exit Change::result(const apply::Outcome& outcome) const
{
    if (outcome.unread || outcome.stopped)
        return Exit::NoAnswer;
    return outcome.done() ? Exit::Done : Exit::NotAsWanted;
}

} // namespace

Exit change(const ConnectionChoice& choice, const model::WantedState& wanted, const Agreement& agreement,
            std::optional<int> endsEntry)
{
    return Change(choice, wanted, agreement, endsEntry).run();
}

} // namespace lanctl::shell
