#include "ObjectManager.hpp"

#include "CimXmlMessage.hpp"
#include "CimXmlReader.hpp"
#include "CimXmlWriter.hpp"
#include "MofParser.hpp"

#include "OW_CIMException.hpp"

#include <algorithm>
#include <filesystem>
#include <mutex>

namespace cimom
{

using namespace OpenWBEM;

CimFailure describe(const std::exception_ptr& thrown)
{
    try {
        std::rethrow_exception(thrown);
    } catch (const CIMException& e) {
        return {e.getErrNo(), e.getMessage()};
    } catch (const std::exception& e) {
        return {CIMException::FAILED, e.what()};
    } catch (...) {
        return {CIMException::FAILED, "Unknown Exception"};
    }
}

namespace
{

// A directory stands for the .mof files in it, in the order of their names.
std::vector<std::string> mofFiles(const std::string& path)
{
    if (!std::filesystem::is_directory(path)) {
        return {path};
    }
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        if (entry.path().extension() == ".mof") {
            files.push_back(entry.path().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

ObjectManager::ObjectManager(const ObjectManagerOptions& options,
                             const ProviderEnvironmentIFCRef& environment)
    : m_loader(options.providerDirectories, environment),
      m_operations(m_repository, m_loader, environment, options.hasBareNames),
      m_intrinsicCalls(m_repository, m_operations), m_isParallel(options.isParallel)
{
    for (const std::string& path : options.mof) {
        for (const std::string& file : mofFiles(path)) {
            m_repository.add(parseMofFile(file));
        }
    }
    for (const std::string& id : m_loader.inspect()) {
        environment->getLogger()->logInfo(("Found provider " + id).c_str());
    }
}

HttpAnswer ObjectManager::answer(const std::string& request)
{
    HttpAnswer answer;
    try {
        const CimXmlMessage message(request);
        const char* element = message.isIntrinsic() ? "IMETHODRESPONSE" : "METHODRESPONSE";
        answer.body.reserve(8192);
        beginResponse(answer.body, message.id(), element, message.name());
        performInTurn(message, answer.body);
        endResponse(answer.body, element);
    } catch (const RequestRefused& refusal) {
        answer.status = refusal.status();
        answer.cimError = refusal.what();
    }
    return answer;
}

void ObjectManager::performInTurn(const CimXmlMessage& message, std::string& xml)
{
    if (m_isParallel && message.isIntrinsic() && IntrinsicCalls::isRead(message.name())) {
        const std::shared_lock<std::shared_mutex> besideOtherReads(m_turn);
        performCall(message, xml);
    } else {
        const std::unique_lock<std::shared_mutex> alone(m_turn);
        performCall(message, xml);
    }
}

// An error takes the place of all that the call has produced.
void ObjectManager::performCall(const CimXmlMessage& message, std::string& xml)
{
    const std::size_t begin = xml.size();
    try {
        if (message.isIntrinsic()) {
            m_intrinsicCalls.perform(message.call(), xml);
        } else {
            performMethod(message, xml);
        }
    } catch (...) {
        const CimFailure failure = describe(std::current_exception());
        xml.resize(begin);
        appendError(xml, failure.code, failure.description.c_str());
    }
}

void ObjectManager::performMethod(const CimXmlMessage& message, std::string& xml)
{
    const XmlElement& instancePath = message.call().child("LOCALINSTANCEPATH");
    const XmlElement& classPath = message.call().child("LOCALCLASSPATH");
    if (!instancePath && !classPath) {
        throw CIMException("ObjectManager.cpp", __LINE__, CIMException::INVALID_PARAMETER,
                           "A LOCALINSTANCEPATH or LOCALCLASSPATH is needed");
    }
    const String nameSpace = readNameSpace(instancePath ? instancePath : classPath);
    const CIMObjectPath path = instancePath ? readInstanceName(instancePath.child("INSTANCENAME"))
                                            : CIMObjectPath(classPath.child("CLASSNAME").attribute("NAME"));
    const Operations::MethodResult result = m_operations.invokeMethod(
        nameSpace, path, bool(instancePath), message.name(), readMethodParameters(message.call()));
    appendReturnValue(xml, result.returnValue);
    for (const CIMParamValue& parameter : result.out) {
        appendParamValue(xml, parameter);
    }
}

void ObjectManager::unloadIdle(std::chrono::seconds idle)
{
    const std::unique_lock<std::shared_mutex> alone(m_turn, std::try_to_lock);
    if (alone) {
        m_loader.unloadIdle(idle);
    }
}

} // namespace cimom
