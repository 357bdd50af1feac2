#include "Targets.hpp"
#include "model/FromCim.hpp"
#include "wire/AnswerParser.hpp"
#include "wire/RequestWriter.hpp"
#include "wire/ServerText.hpp"

#include <string>

namespace
{

using namespace lanctl;

/// Whether it is XML: a request is a CIM message, but no answer.
bool isWellFormed(const std::string& request)
{
    try {
        wire::parseAnswer(request);
    } catch (const wire::MalformedAnswer& e) {
        return std::string(e.what()) == "it is not a CIM-XML response";
    }
    return true;
}

template <class Convert>
void tryToConvert(const wire::Answer& answer, const Convert& convert)
{
    try {
        convert(answer.instances);
    } catch (const model::UnexpectedInstance&) {
        return; // what is missing or odd is named; anything else is not caught
    }
}

} // namespace

void fuzz::cim_answer(std::string_view input)
{
    wire::Answer answer;
    try {
        answer = wire::parseAnswer(input);
    } catch (const wire::MalformedAnswer&) {
        return;
    }
    if (answer.error)
        expect(!wire::bareText(answer.error->code, answer.error->description).text.empty(),
               "an error has a text");
    tryToConvert(answer, model::endpointsFrom);
    tryToConvert(answer, model::onlySettingFrom);
    tryToConvert(answer, model::firstMarkingFrom);
    for (const auto& instance : answer.instances)
        expect(isWellFormed(wire::RequestWriter("root/cimv2").modifyInstance({{}, instance, {}}).body),
               "what was read can be sent");
}
