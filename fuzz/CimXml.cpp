#include "ConsoleLogger.hpp"
#include "ObjectManager.hpp"
#include "ProviderEnvironment.hpp"
#include "Targets.hpp"
#include "XmlElement.hpp"

#include <string>

namespace
{

/// Without providers: what they would be asked is refused after all of the request has been read.
cimom::ObjectManager& objectManager()
{
    static const OpenWBEM::ProviderEnvironmentIFCRef environment(new cimom::ProviderEnvironment(
        OpenWBEM::LoggerRef(new cimom::ConsoleLogger(OpenWBEM::E_NONE_LEVEL)), {}));
    static cimom::ObjectManager manager({{KV_MOF_DIR}, {}}, environment);
    return manager;
}

} // namespace

void fuzz::cim_xml(std::string_view input)
{
    const cimom::HttpAnswer answer = objectManager().answer(std::string(input));
    if (answer.status != 200) {
        expect(answer.status == 400 || answer.status == 501, "a refusal is HTTP 400 or 501");
        expect(answer.body.empty(), "a refusal has no body");
        return;
    }
    // What is not well-formed throws, which ends the program as well.
    const cimom::XmlElement message = cimom::parseXml(answer.body).child("MESSAGE");
    expect(bool(message.child("SIMPLERSP")), "an answer is a CIM message");
}
