#include "CallCommand.hpp"

#include "CallOutput.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMValue.hpp"
#include "OW_String.hpp"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <strings.h>
#include <utility>

namespace cimom
{

using namespace OpenWBEM;

namespace
{

struct Target {
    String nameSpace;
    CIMObjectPath path{CIMNULL};
    bool isInstance = false;
};

[[noreturn]] void refuse(const std::string& message)
{
    throw CIMException("CallCommand.cpp", __LINE__, CIMException::INVALID_PARAMETER, message.c_str());
}

Target parseTarget(const std::string& text)
{
    Target target;
    const std::size_t keys = std::min(text.find('.'), text.size());
    const std::size_t colon = text.rfind(':', keys);
    const bool hasNameSpace = colon != std::string::npos && colon < keys;
    target.nameSpace = hasNameSpace ? text.substr(0, colon).c_str() : defaultNameSpace;
    const std::string object = hasNameSpace ? text.substr(colon + 1) : text;
    target.isInstance = keys < text.size();
    target.path = target.isInstance ? CIMObjectPath::parse(object.c_str()) : CIMObjectPath(object.c_str());
    return target;
}

std::pair<String, CIMValue> parseAssignment(const std::string& text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0) {
        refuse("\"" + text + "\" is not Name=value");
    }
    return {String(text.substr(0, equals).c_str()), CIMValue(String(text.substr(equals + 1).c_str()))};
}

// All values are strings here. Later they are cast to the types of the class.
CIMInstance instanceOf(const Target& target, const CallOptions& options)
{
    CIMInstance instance(CIMName(target.path.getClassName()));
    for (const CIMProperty& key : target.path.getKeys()) {
        instance.setProperty(key);
    }
    for (const std::string& assignment : options.assignments) {
        const auto [name, value] = parseAssignment(assignment);
        instance.setProperty(CIMProperty(name, value));
    }
    return instance;
}

std::pair<String, CIMValue> onlyAssignment(const CallOptions& options)
{
    if (options.assignments.size() != 1) {
        refuse("one Name=value is needed");
    }
    return parseAssignment(options.assignments[0]);
}

ReadOptions allOfIt()
{
    ReadOptions options;
    options.localOnly = false;
    options.includeQualifiers = true;
    return options;
}

// A list: as text one line an entry, as JSON an array.
class ListText
{
  public:
    explicit ListText(bool asJson) : m_asJson(asJson) {}
    void add(const std::string& element)
    {
        m_text.append(m_text.empty() ? "" : (m_asJson ? "," : "\n")).append(element);
    }
    std::string text() const { return m_asJson ? "[" + m_text + "]" : m_text; }

  private:
    bool m_asJson;
    std::string m_text;
};

using Perform = std::string (*)(ObjectManager&, const Target&, const CallOptions&);

std::string getInstance(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    return instanceText(manager.operations().getInstance(target.nameSpace, target.path, allOfIt()),
                        options.json);
}

std::string enumerateInstances(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    ListText list(options.json);
    manager.operations().enumerateInstances(target.nameSpace, target.path.getClassName(), allOfIt(),
                                            [&](const CIMObjectPath&, const CIMInstance& instance) {
                                                list.add(instanceText(instance, options.json));
                                            });
    return list.text();
}

std::string enumerateInstanceNames(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    ListText list(options.json);
    manager.operations().enumerateInstanceNames(
        target.nameSpace, target.path.getClassName(),
        [&](const CIMObjectPath& name) { list.add(pathText(name, options.json)); });
    return list.text();
}

std::string modifyInstance(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    manager.operations().modifyInstance(target.nameSpace, instanceOf(target, options), true, nullptr);
    return "";
}

std::string createInstance(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    return pathText(manager.operations().createInstance(target.nameSpace, instanceOf(target, options)),
                    options.json);
}

std::string deleteInstance(ObjectManager& manager, const Target& target, const CallOptions&)
{
    manager.operations().deleteInstance(target.nameSpace, target.path);
    return "";
}

std::string getProperty(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    if (options.assignments.size() != 1) {
        refuse("the name of one property is needed");
    }
    const String name = options.assignments[0].c_str();
    return valueText(manager.operations().getProperty(target.nameSpace, target.path, name), options.json);
}

std::string setProperty(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    const auto [name, value] = onlyAssignment(options);
    manager.operations().setProperty(target.nameSpace, target.path, name, value);
    return "";
}

std::string invokeMethod(ObjectManager& manager, const Target& target, const CallOptions& options)
{
    CIMParamValueArray arguments;
    for (const std::string& assignment : options.assignments) {
        const auto [name, value] = parseAssignment(assignment);
        arguments.push_back(CIMParamValue(name, value));
    }
    return methodResultText(manager.operations().invokeMethod(target.nameSpace, target.path,
                                                              target.isInstance, options.operation.c_str(),
                                                              arguments),
                            options.json);
}

const std::pair<const char*, Perform> operations[] = {
    {"getInstance", getInstance},       {"enumerateInstances", enumerateInstances},
    {"modifyInstance", modifyInstance}, {"enumerateInstanceNames", enumerateInstanceNames},
    {"createInstance", createInstance}, {"deleteInstance", deleteInstance},
    {"getProperty", getProperty},       {"setProperty", setProperty},
};

Perform find(const std::string& operation)
{
    const auto* found =
        std::find_if(std::begin(operations), std::end(operations), [&](const auto& candidate) {
            return strcasecmp(candidate.first, operation.c_str()) == 0;
        });
    return found != std::end(operations) ? found->second : invokeMethod;
}

} // namespace

int call(ObjectManager& objectManager, const CallOptions& options)
{
    try {
        const std::string text =
            find(options.operation)(objectManager, parseTarget(options.objectPath), options);
        if (!text.empty()) {
            std::cout << text << std::endl;
        }
        return 0;
    } catch (...) {
        const CimFailure failure = describe(std::current_exception());
        (options.json ? std::cout : std::cerr) << failureText(failure, options.json) << std::endl;
        return failure.code;
    }
}

} // namespace cimom
