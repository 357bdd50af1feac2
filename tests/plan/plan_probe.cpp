// Plans changes of a server and sends their requests one by one, as its input says. Each line of the input is
// answered by one line of JSON.
//
//   plan WANTED   reads the server's state and plans; WANTED is a wanted state in JSON. The plan that comes
//   back has the
//                 requests even where something is refused.
//   send          sends the next request of that plan
#include "apply/Reading.hpp"
#include "model/WantedText.hpp"
#include "plan/Plan.hpp"
#include "wire/Client.hpp"
#include "wire/Failure.hpp"
#include "wire/ServerAddress.hpp"

#include <nlohmann/json.hpp>

#include <iostream>
#include <string>

namespace
{

using nlohmann::json;
using namespace lanctl;

json impactJson(const plan::Impact& impact)
{
    return {{"interface restarts", impact.interfaceRestarts},
            {"voice messaging restarts", impact.voiceMessagingRestarts},
            {"voice messaging stops", impact.voiceMessagingStops},
            {"DHCP service notices", impact.dhcpServiceNotices},
            {"element management notices", impact.elementManagementNotices},
            {"hosts table rewrites", impact.hostsTableRewrites},
            {"resolver file rewrites", impact.resolverFileRewrites},
            {"default route moves", impact.defaultRouteMoves}};
}

json planJson(const plan::Plan& plan)
{
    json result = {{"changes", json::array()},
                   {"refusals", json::array()},
                   {"notes", json::array()},
                   {"requests", json::array()},
                   {"warnings", plan.warnings}};
    for (const plan::Change& change : plan.changes)
        result["changes"].push_back({{"object", change.object},
                                     {"key", change.key},
                                     {"from", change.from},
                                     {"to", change.to},
                                     {"sent", change.sent}});
    for (const plan::Refusal& refusal : plan.refusals)
        result["refusals"].push_back({{"object", refusal.object},
                                      {"key", refusal.key},
                                      {"text", refusal.text},
                                      {"identifier", refusal.identifier},
                                      {"by server", refusal.byServer}});
    for (const plan::Note& note : plan.notes)
        result["notes"].push_back({{"object", note.object}, {"key", note.key}, {"text", note.text}});
    for (const plan::Request& request : plan.requests)
        result["requests"].push_back({{"object", request.object}, {"impact", impactJson(request.impact)}});
    return result;
}

class Probe
{
  public:
    explicit Probe(const std::string& server) : m_client(options(server)) {}

    json answer(const std::string& line)
    {
        if (line.rfind("plan ", 0) == 0)
            return plan(line.substr(5));
        if (line == "send")
            return send();
        return {{"error", "neither plan nor send: " + line}};
    }

  private:
    static wire::ConnectionOptions options(const std::string& server)
    {
        wire::ConnectionOptions options;
        options.server = wire::parseServerAddress(server);
        return options;
    }

    json plan(const std::string& wanted)
    {
        m_plan = plan::uncheckedPlan(apply::readState(m_client), model::parseWanted(wanted));
        m_next = 0;
        return planJson(m_plan);
    }

    /// Null when the server takes the request.
    json send()
    {
        try {
            m_client.modifyInstance(m_plan.requests.at(m_next++).modification);
            return nullptr;
        } catch (const wire::CimError& e) {
            return {{"code", e.code()}, {"text", e.what()}, {"identifier", e.identifier()}};
        }
    }

    wire::Client m_client;
    plan::Plan m_plan;
    std::size_t m_next = 0;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: plan_probe URL\n";
        return 2;
    }
    try {
        Probe probe(argv[1]);
        for (std::string line; std::getline(std::cin, line);)
            std::cout << probe.answer(line).dump(-1, ' ', false, json::error_handler_t::replace) << std::endl;
    } catch (const std::exception& e) {
        std::cerr << "plan_probe: " << e.what() << '\n';
        return 1;
    }
}
