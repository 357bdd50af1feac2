#include "wire/Client.hpp"

#include "wire/Failure.hpp"
#include "wire/ServerText.hpp"

namespace lanctl::wire
{

namespace
{

constexpr const char* checkAddress = "Check that the address is that of a CIM object manager.";

Answer parsed(const std::string& body)
{
    try {
        return parseAnswer(body);
    } catch (const MalformedAnswer& e) {
        throw Failure(Failure::Kind::NoCimAnswer,
                      std::string("The answer cannot be understood: ") + e.what() + ".", checkAddress, true);
    }
}

} // namespace

std::vector<Instance> Client::enumerateInstances(const std::string& className)
{
    return call(m_writer.enumerateInstances(className)).instances;
}

void Client::modifyInstance(const Modification& modification)
{
    call(m_writer.modifyInstance(modification));
}

std::string Client::invokeMethod(const InstanceName& object, const std::string& method)
{
    return call(m_writer.invokeMethod(object, method)).returnValue.value_or("");
}

Answer Client::call(const Request& request)
{
    Answer answer = parsed(m_connection.post(request));
    if (answer.id != request.id || answer.method != request.method)
        throw Failure(Failure::Kind::NoCimAnswer, "The answer belongs to another request.", checkAddress,
                      true);
    if (answer.error) {
        const ServerText text = bareText(answer.error->code, answer.error->description);
        throw CimError(answer.error->code, text.text, text.identifier);
    }
    return answer;
}

} // namespace lanctl::wire
