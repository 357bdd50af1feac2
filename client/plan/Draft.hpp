// A draft: the plan of one object while it is made.
#pragma once

#include "model/Names.hpp"
#include "plan/Plan.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace lanctl::plan
{

class Draft
{
  public:
    /// `name` is what the server finds the object by; every request carries its keys as properties.
    Draft(std::string object, wire::InstanceName name);

    /// A value that is not as wanted; it goes out with `send`.
    void change(const model::Key& key, std::string from, std::string to);
    /// A value that is not as wanted and would be taken without any effect.
    void changeWithoutEffect(const model::Key& key, std::string from, std::string to, std::string why);
    void refuse(Refusal refusal);
    void note(std::string_view key, std::string text);

    /// Puts a property into the request, which applies the properties in this order.
    void send(std::string_view property, std::string_view type, std::string value);
    /// What the request costs besides.
    void cost(const Impact& impact);
    /// Ends the request; what is sent next goes into another one. A request without a property is none.
    void endRequest();

    bool sendsNothing() const { return m_sent.empty(); }
    bool sends(std::string_view property) const;

    /// The plan. It has its requests even where something is refused. `warnings` are the server's own.
    Plan finish(const model::ImpactWarnings& warnings);

  private:
    void warn(const model::ImpactWarnings& warnings);

    std::string m_object;
    wire::InstanceName m_name;
    Plan m_plan;
    std::vector<wire::Property> m_sent; // by the request under way
    Impact m_impact;                    // of the request under way
};

/// "on" or "off", as users write a switch.
std::string switchText(bool on);
/// "true" or "false", as it travels.
std::string booleanValue(bool on);

} // namespace lanctl::plan
