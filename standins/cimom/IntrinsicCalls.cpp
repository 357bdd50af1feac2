#include "IntrinsicCalls.hpp"

#include "CimXmlReader.hpp"
#include "CimXmlWriter.hpp"

#include "OW_CIMException.hpp"

#include <algorithm>
#include <iterator>
#include <strings.h>

namespace cimom
{

using namespace OpenWBEM;

namespace
{

using NameList = std::optional<StringArray>;

const StringArray* pointerTo(const NameList& list)
{
    return list ? &*list : nullptr;
}

// The list must outlive the options.
ReadOptions readOptions(const IntrinsicParameters& parameters, const NameList& propertyList)
{
    ReadOptions options;
    options.localOnly = parameters.flag("LocalOnly", true);
    options.includeQualifiers = parameters.flag("IncludeQualifiers", false);
    options.includeClassOrigin = parameters.flag("IncludeClassOrigin", false);
    options.propertyList = pointerTo(propertyList);
    return options;
}

ClassView classView(const IntrinsicParameters& parameters)
{
    ClassView view;
    view.localOnly = parameters.flag("LocalOnly", true);
    view.includeQualifiers = parameters.flag("IncludeQualifiers", true);
    view.includeClassOrigin = parameters.flag("IncludeClassOrigin", false);
    return view;
}

} // namespace

const IntrinsicCalls::Method IntrinsicCalls::methods[] = {
    {"GetInstance", &IntrinsicCalls::getInstance, true, true},
    {"EnumerateInstances", &IntrinsicCalls::enumerateInstances, true, true},
    {"EnumerateInstanceNames", &IntrinsicCalls::enumerateInstanceNames, true, true},
    {"ModifyInstance", &IntrinsicCalls::modifyInstance, false, false},
    {"CreateInstance", &IntrinsicCalls::createInstance, true, false},
    {"DeleteInstance", &IntrinsicCalls::deleteInstance, false, false},
    {"GetProperty", &IntrinsicCalls::getProperty, true, true},
    {"SetProperty", &IntrinsicCalls::setProperty, false, false},
    {"GetClass", &IntrinsicCalls::getClass, true, true},
    {"EnumerateClasses", &IntrinsicCalls::enumerateClasses, true, true},
    {"EnumerateClassNames", &IntrinsicCalls::enumerateClassNames, true, true},
    {"EnumerateQualifiers", &IntrinsicCalls::enumerateQualifiers, true, true},
};

const IntrinsicCalls::Method* IntrinsicCalls::find(const char* name)
{
    const auto* found = std::find_if(std::begin(methods), std::end(methods), [name](const Method& candidate) {
        return strcasecmp(candidate.name, name) == 0;
    });
    return found != std::end(methods) ? found : nullptr;
}

bool IntrinsicCalls::isRead(const char* method)
{
    const Method* found = find(method);
    return found != nullptr && found->isRead;
}

void IntrinsicCalls::perform(const XmlElement& call, std::string& xml)
{
    const Method* method = find(call.attribute("NAME"));
    if (method == nullptr) {
        throw CIMException("IntrinsicCalls.cpp", __LINE__, CIMException::NOT_SUPPORTED);
    }
    const String nameSpace = readNameSpace(call);
    xml.append(method->returnsValue ? "<IRETURNVALUE>" : "");
    (this->*method->perform)(call, nameSpace, xml);
    xml.append(method->returnsValue ? "</IRETURNVALUE>" : "");
}

void IntrinsicCalls::getInstance(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(
        call, {"InstanceName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
    const NameList propertyList = parameters.nameList("PropertyList");
    const ReadOptions options = readOptions(parameters, propertyList);
    appendInstance(xml,
                   m_operations.getInstance(nameSpace, parameters.instanceName("InstanceName"), options));
}

void IntrinsicCalls::enumerateInstances(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(call, {"ClassName", "LocalOnly", "DeepInheritance",
                                                "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
    const NameList propertyList = parameters.nameList("PropertyList");
    ReadOptions options = readOptions(parameters, propertyList);
    options.deep = parameters.flag("DeepInheritance", true);
    m_operations.enumerateInstances(nameSpace, parameters.className("ClassName"), options,
                                    [&xml](const CIMObjectPath& name, const CIMInstance& instance) {
                                        appendNamedInstance(xml, name, instance);
                                    });
}

void IntrinsicCalls::enumerateInstanceNames(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(call, {"ClassName"});
    m_operations.enumerateInstanceNames(nameSpace, parameters.className("ClassName"),
                                        [&xml](const CIMObjectPath& name) { appendInstanceName(xml, name); });
}

void IntrinsicCalls::modifyInstance(const XmlElement& call, const String& nameSpace, std::string&)
{
    const IntrinsicParameters parameters(call, {"ModifiedInstance", "IncludeQualifiers", "PropertyList"});
    const NameList propertyList = parameters.nameList("PropertyList");
    m_operations.modifyInstance(nameSpace, parameters.namedInstance("ModifiedInstance"),
                                parameters.flag("IncludeQualifiers", true), pointerTo(propertyList));
}

void IntrinsicCalls::createInstance(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(call, {"NewInstance"});
    appendInstanceName(xml, m_operations.createInstance(nameSpace, parameters.instance("NewInstance")));
}

void IntrinsicCalls::deleteInstance(const XmlElement& call, const String& nameSpace, std::string&)
{
    const IntrinsicParameters parameters(call, {"InstanceName"});
    m_operations.deleteInstance(nameSpace, parameters.instanceName("InstanceName"));
}

void IntrinsicCalls::getProperty(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(call, {"InstanceName", "PropertyName"});
    const CIMObjectPath name = parameters.instanceName("InstanceName");
    appendValue(xml, m_operations.getProperty(nameSpace, name, parameters.text("PropertyName")));
}

void IntrinsicCalls::setProperty(const XmlElement& call, const String& nameSpace, std::string&)
{
    const IntrinsicParameters parameters(call, {"InstanceName", "PropertyName", "NewValue"});
    m_operations.setProperty(nameSpace, parameters.instanceName("InstanceName"),
                             parameters.text("PropertyName"), parameters.optionalValue("NewValue"));
}

void IntrinsicCalls::getClass(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(
        call, {"ClassName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
    const String className = parameters.className("ClassName");
    const NameList propertyList = parameters.nameList("PropertyList");
    ClassView view = classView(parameters);
    view.propertyList = pointerTo(propertyList);
    const CIMClass cimClass = m_repository.nameSpace(nameSpace).findClass(className);
    if (!cimClass) {
        throw CIMException("IntrinsicCalls.cpp", __LINE__, CIMException::NOT_FOUND,
                           CIMObjectPath(className, nameSpace).toString().c_str());
    }
    appendClass(xml, cimClass, view);
}

void IntrinsicCalls::enumerateClasses(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(
        call, {"ClassName", "DeepInheritance", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin"});
    const ClassView view = classView(parameters);
    for (const CIMClass& cimClass : subclasses(nameSpace, parameters.optionalClassName("ClassName"),
                                               parameters.flag("DeepInheritance", false))) {
        appendClass(xml, cimClass, view);
    }
}

void IntrinsicCalls::enumerateClassNames(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(call, {"ClassName", "DeepInheritance"});
    for (const CIMClass& cimClass : subclasses(nameSpace, parameters.optionalClassName("ClassName"),
                                               parameters.flag("DeepInheritance", false))) {
        appendClassName(xml, cimClass.getName());
    }
}

void IntrinsicCalls::enumerateQualifiers(const XmlElement& call, const String& nameSpace, std::string& xml)
{
    const IntrinsicParameters parameters(call, {});
    for (const QualifierDeclaration& declaration : m_repository.nameSpace(nameSpace).qualifiers()) {
        appendQualifierDeclaration(xml, declaration);
    }
}

// The subclasses of the class named, or the classes without superclass when the name is empty.
CIMClassArray IntrinsicCalls::subclasses(const String& nameSpace, const String& className, bool deep) const
{
    const NameSpace& classes = m_repository.nameSpace(nameSpace);
    if (!className.empty() && !classes.findClass(className)) {
        throw CIMException("IntrinsicCalls.cpp", __LINE__, CIMException::INVALID_CLASS, className.c_str());
    }
    return classes.subclasses(className, deep);
}

} // namespace cimom
