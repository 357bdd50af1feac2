// Plans changes of a server and sends their requests one by one, as its input says. One line of JSON answers
// each line of the input.
//
//   plan WANTED   reads the server's state and plans; WANTED is a wanted state in JSON. The plan has the
//                 requests even where something is refused.
//   send          sends the next request of that plan
#include "apply/Reading.hpp"
#include "model/WantedText.hpp"
#include "plan/Plan.hpp"
#include "wire/Client.hpp"
#include "wire/Failure.hpp"
#include "wire/ServerAddress.hpp"
#include "json/PlanJson.hpp"

#include <iostream>
#include <string>

namespace
{

using namespace lanctl;
using json::Json;

Json planJson(const plan::Plan& plan)
{
    Json result = json::toJson(plan, {});
    result["requests"] = Json::array();
    for (const plan::Request& request : plan.requests)
        result["requests"].push_back({{"object", request.object}, {"costs", json::toJson(request.impact)}});
    return result;
}

class Probe
{
  public:
    explicit Probe(const std::string& server) : m_client(options(server)) {}

    Json answer(const std::string& line)
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

    Json plan(const std::string& wanted)
    {
        m_plan = plan::uncheckedPlan(apply::readState(m_client), model::parseWanted(wanted));
        m_next = 0;
        return planJson(m_plan);
    }

    /// Null when the server takes the request.
    Json send()
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
            std::cout << probe.answer(line).dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
    } catch (const std::exception& e) {
        std::cerr << "plan_probe: " << e.what() << '\n';
        return 1;
    }
}
