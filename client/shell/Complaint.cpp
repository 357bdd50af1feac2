#include "shell/Complaint.hpp"

#include "plan/Advice.hpp"
#include "shell/Terminal.hpp"

namespace lanctl::shell
{

namespace
{

std::string sentence(const std::string& text)
{
    if (text.empty() || text.back() == '.' || text.back() == '!')
        return text;
    return text + ".";
}

} // namespace

std::string complaint(const ServerComplaint& refused)
{
    std::string text = refused.text;
    if (!refused.identifier.empty())
        text += " (" + refused.identifier + ")";
    if (!refused.why.empty())
        return harmless(sentence(text) + " " + sentence(refused.why));
    const std::string advice = plan::adviceFor(refused.text, refused.identifier);
    return harmless(sentence(advice.empty() ? text : text + ": " + advice));
}

std::string complaint(const wire::CimError& error)
{
    return complaint(ServerComplaint{error.what(), error.identifier(), {}});
}

std::string complaint(const wire::Failure& failure)
{
    const std::string text = failure.what();
    return harmless(failure.advice().empty() ? text : text + " " + failure.advice());
}

} // namespace lanctl::shell
