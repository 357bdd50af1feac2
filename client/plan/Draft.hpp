// A draft: the plan of one object while it is made.
#pragma once

#include "model/Names.hpp"
#include "plan/Plan.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lanctl::plan
{

class Draft
{
  public:
    using Keys = std::vector<std::pair<std::string, std::string>>;

    /// `keys` are the object's key properties; every request carries them.
    Draft(std::string object, std::string_view className, Keys keys);

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

    bool sendsNothing() const { return sent_.empty(); }
    bool sends(std::string_view property) const;

    /// The plan, with the requests even where something is refused. `warnings` are the server's own.
    Plan finish(const model::ImpactWarnings& warnings);

  private:
    void warn(const model::ImpactWarnings& warnings);

    std::string object_;
    std::string className_;
    Keys keys_;
    Plan plan_;
    std::vector<wire::Property> sent_; // by the request under way
    Impact impact_;                    // of the request under way
};

/// "on" or "off", as users write a switch.
std::string switchText(bool on);
/// "true" or "false", as it travels.
std::string booleanValue(bool on);

} // namespace lanctl::plan
