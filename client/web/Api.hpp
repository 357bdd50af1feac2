// The JSON interface of the page. docs/lanctl.md describes it.
#pragma once

#include "model/Wanted.hpp"
#include "wayback/History.hpp"
#include "web/Command.hpp"
#include "web/Follower.hpp"
#include "web/Http.hpp"
#include "json/PlanJson.hpp"

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace lanctl::web
{

struct ApiOptions {
    std::string server; // as users call it
    bool readOnly = false;
    int confirmSeconds = 60;             // the countdown of a change that names none
    std::vector<std::string> connection; // the options that tell lanctl which server it is
};

class Api
{
  public:
    using Run = std::function<Finished(const std::vector<std::string>&, const std::string&)>;

    Api(ApiOptions options, Follower& follower, wayback::History history, Run run = runLanctl);

    /// Answers a request whose path begins with /api/.
    Response answer(const Request& request);

  private:
    Response state();
    Response plan(const json::Json& body);
    Response apply(const json::Json& body);
    Response confirm(const json::Json& body);
    Response revert(const json::Json& body);
    Response rollback(const json::Json& body);
    Response history() const;
    Response post(const Request& request);
    Response rollbackPlan(int number, const Snapshot& snapshot) const;
    int countdownOf(const json::Json& body) const;
    Response requestOfGuard(const json::Json& body, const char* request);
    std::optional<Response> openChange(std::optional<int> rolledBack) const;
    Response runChange(std::vector<std::string> arguments, const std::string& input,
                       std::optional<int> rolledBack);

    ApiOptions m_options;
    Follower& m_follower;
    wayback::History m_history;
    Run m_run;
    std::mutex m_changing; // one change at a time
};

} // namespace lanctl::web
