#include "Operations.hpp"

#include "RequestSync.hpp"

#include "OW_CIMMethod.hpp"
#include "OW_CIMParameter.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"

namespace cimom
{

using namespace OpenWBEM;
using namespace OpenWBEM::WBEMFlags;

namespace
{

[[noreturn]] void fail(CIMException::ErrNoType code, const String& message)
{
    throw CIMException("Operations.cpp", __LINE__, code, message.c_str());
}

ELocalOnlyFlag localOnlyFlag(bool set)
{
    return set ? E_LOCAL_ONLY : E_NOT_LOCAL_ONLY;
}
EIncludeQualifiersFlag qualifiersFlag(bool set)
{
    return set ? E_INCLUDE_QUALIFIERS : E_EXCLUDE_QUALIFIERS;
}
EIncludeClassOriginFlag originFlag(bool set)
{
    return set ? E_INCLUDE_CLASS_ORIGIN : E_EXCLUDE_CLASS_ORIGIN;
}

// The id in Provider("c++::id"); a single colon will do. Empty without the qualifier.
String providerId(const CIMQualifier& qualifier)
{
    if (!qualifier) {
        return String("");
    }
    const String text = qualifier.getValue().toString();
    if (!text.startsWith("c++:", String::E_CASE_INSENSITIVE)) {
        fail(CIMException::FAILED, "Invalid provider: " + text);
    }
    return text.substring(text.startsWith("c++::", String::E_CASE_INSENSITIVE) ? 5 : 4);
}

CIMObjectPath inNameSpace(CIMObjectPath path, const String& nameSpace)
{
    return path.setNameSpace(nameSpace);
}

CppInstanceProviderIFC& instanceProvider(const CppProviderBaseIFCRef& provider)
{
    CppInstanceProviderIFC* result = provider->getInstanceProvider();
    if (result == nullptr) {
        fail(CIMException::NOT_SUPPORTED, "The provider has no instances");
    }
    return *result;
}

CppMethodProviderIFC& methodProvider(const CppProviderBaseIFCRef& provider)
{
    CppMethodProviderIFC* result = provider->getMethodProvider();
    if (result == nullptr) {
        fail(CIMException::METHOD_NOT_AVAILABLE, "The provider has no methods");
    }
    return *result;
}

// Passes each result of a provider on to a function.
template <class Result, class Handler>
class Forwarder : public ResultHandlerIFC<Result>
{
  public:
    explicit Forwarder(const Handler& handler) : m_handler(handler) {}

  protected:
    void doHandle(const Result& result) override { m_handler(result); }

  private:
    Handler m_handler;
};

// One entry by name for each OUT parameter, for the provider to fill.
CIMParamValueArray outParameters(const CIMMethod& method)
{
    CIMParamValueArray result;
    for (const CIMParameter& parameter : method.getOUTParameters()) {
        result.push_back(CIMParamValue(CIMName(parameter.getName())));
    }
    return result;
}

// How an instance is read before any change.
ReadOptions everything()
{
    return {false, true, true, true, nullptr};
}

} // namespace

Operations::Operations(const ClassRepository& repository, ProviderLoader& loader,
                       const ProviderEnvironmentIFCRef& environment, bool hasBareNames)
    : m_repository(repository), m_loader(loader), m_environment(environment), m_hasBareNames(hasBareNames)
{
}

CIMClass Operations::findClass(const String& nameSpace, const String& className,
                               CIMException::ErrNoType whenUnknown) const
{
    CIMClass result = m_repository.nameSpace(nameSpace).findClass(className);
    if (!result) {
        fail(whenUnknown, CIMObjectPath(className, nameSpace).toString());
    }
    return result;
}

CIMClassArray Operations::withSubclasses(const String& nameSpace, const CIMClass& top) const
{
    CIMClassArray classes = m_repository.nameSpace(nameSpace).subclasses(top.getName(), true);
    classes.insert(0, top);
    return classes;
}

// Null for a class without provider: such a class has no instances.
CppProviderBaseIFCRef Operations::providerOf(const CIMClass& cimClass)
{
    const String id = providerId(cimClass.getQualifier("Provider"));
    return id.empty() ? CppProviderBaseIFCRef() : m_loader.provider(id.c_str());
}

void Operations::enumerateInstanceNames(const String& nameSpace, const String& className,
                                        const NameHandler& handler)
{
    const CIMClass top = findClass(nameSpace, className, CIMException::INVALID_CLASS);
    Forwarder<CIMObjectPath, NameHandler> results(handler);
    for (const CIMClass& cimClass : withSubclasses(nameSpace, top)) {
        if (const CppProviderBaseIFCRef provider = providerOf(cimClass)) {
            instanceProvider(provider).enumInstanceNames(m_environment, nameSpace, cimClass.getName(),
                                                         results, cimClass);
        }
    }
}

void Operations::enumerateInstances(const String& nameSpace, const String& className,
                                    const ReadOptions& options, const InstanceHandler& handler)
{
    const CIMClass top = findClass(nameSpace, className, CIMException::INVALID_CLASS);
    for (const CIMClass& cimClass : withSubclasses(nameSpace, top)) {
        const CppProviderBaseIFCRef provider = providerOf(cimClass);
        if (!provider) {
            continue;
        }
        const auto named = [&](const CIMInstance& instance) {
            handler(m_hasBareNames ? bareName(instance) : instanceName(instance, cimClass), instance);
        };
        Forwarder<CIMInstance, decltype(named)> results(named);
        instanceProvider(provider).enumInstances(
            m_environment, nameSpace, cimClass.getName(), results, localOnlyFlag(options.localOnly),
            options.deep ? E_DEEP : E_SHALLOW, qualifiersFlag(options.includeQualifiers),
            originFlag(options.includeClassOrigin), options.propertyList, top, cimClass);
    }
}

CIMInstance Operations::getInstance(const String& nameSpace, const CIMObjectPath& name,
                                    const ReadOptions& options)
{
    const CIMClass cimClass = findClass(nameSpace, name.getClassName(), CIMException::INVALID_CLASS);
    return fetch(nameSpace, syncedPath(name, cimClass), cimClass, options);
}

CIMInstance Operations::fetch(const String& nameSpace, const CIMObjectPath& path, const CIMClass& cimClass,
                              const ReadOptions& options)
{
    const CppProviderBaseIFCRef provider = providerOf(cimClass);
    if (!provider) {
        fail(CIMException::NOT_FOUND, inNameSpace(path, nameSpace).toString());
    }
    CIMInstance result = instanceProvider(provider).getInstance(
        m_environment, nameSpace, path, localOnlyFlag(options.localOnly),
        qualifiersFlag(options.includeQualifiers), originFlag(options.includeClassOrigin),
        options.propertyList, cimClass);
    if (!result) {
        fail(CIMException::FAILED, "Provider erroneously returned a NULL CIMInstance");
    }
    return result;
}

CIMInstance Operations::fetchWhole(const String& nameSpace, const CIMObjectPath& path,
                                   const CIMClass& cimClass)
{
    return fetch(nameSpace, path, cimClass, everything());
}

CIMValue Operations::getProperty(const String& nameSpace, const CIMObjectPath& name,
                                 const String& propertyName)
{
    const CIMClass cimClass = findClass(nameSpace, name.getClassName(), CIMException::INVALID_CLASS);
    if (!cimClass.getProperty(propertyName)) {
        fail(CIMException::NO_SUCH_PROPERTY, propertyName);
    }
    const CIMProperty property =
        fetchWhole(nameSpace, syncedPath(name, cimClass), cimClass).getProperty(propertyName);
    if (!property) {
        fail(CIMException::NO_SUCH_PROPERTY, propertyName);
    }
    return property.getValue();
}

void Operations::modifyInstance(const String& nameSpace, const CIMInstance& instance, bool includeQualifiers,
                                const StringArray* propertyList)
{
    const CIMClass cimClass = findClass(nameSpace, instance.getClassName(), CIMException::INVALID_CLASS);
    CIMInstance modified = syncedInstance(instance, cimClass);
    if (propertyList != nullptr) {
        modified = restrictedTo(*propertyList, modified);
    }
    const CIMInstance previous = fetchWhole(nameSpace, CIMObjectPath(nameSpace, modified), cimClass);
    const CppProviderBaseIFCRef provider = providerOf(cimClass);
    instanceProvider(provider).modifyInstance(m_environment, nameSpace, modified, previous,
                                              qualifiersFlag(includeQualifiers), propertyList, cimClass);
}

// As OpenWBEM does it: reads the instance, puts the value in, and modifies with a list of this one name. The
// modification reads a second time.
void Operations::setProperty(const String& nameSpace, const CIMObjectPath& name, const String& propertyName,
                             const CIMValue& value)
{
    const CIMClass cimClass = findClass(nameSpace, name.getClassName(), CIMException::INVALID_CLASS);
    CIMProperty property = cimClass.getProperty(propertyName);
    if (!property) {
        fail(CIMException::NO_SUCH_PROPERTY, propertyName);
    }
    try {
        property.setValue(CIMValueCast::castValueToDataType(value, property.getDataType()));
    } catch (const CIMException& e) {
        fail(CIMException::TYPE_MISMATCH, e.Exception::getMessage());
    }
    CIMInstance instance = fetchWhole(nameSpace, syncedPath(name, cimClass), cimClass);
    if (property.isKey()) {
        fail(CIMException::FAILED, "Cannot modify key property: " + property.getName());
    }
    instance.setProperty(property);
    const StringArray list(1, propertyName);
    modifyInstance(nameSpace, instance, true, &list);
}

CIMObjectPath Operations::createInstance(const String& nameSpace, const CIMInstance& instance)
{
    const CIMClass cimClass = findClass(nameSpace, instance.getClassName(), CIMException::INVALID_CLASS);
    const CIMQualifier abstract = cimClass.getQualifier("Abstract");
    if (abstract && abstract.getValue() == CIMValue(true)) {
        fail(CIMException::INVALID_PARAMETER,
             "Unable to create instance because class (" + cimClass.getName() + ") is abstract");
    }
    const CIMInstance complete = syncedInstance(instance, cimClass);
    const CppProviderBaseIFCRef provider = providerOf(cimClass);
    if (!provider) {
        fail(CIMException::NOT_SUPPORTED, "Class " + cimClass.getName() + " has no provider");
    }
    const CIMObjectPath path = instanceProvider(provider).createInstance(m_environment, nameSpace, complete);
    return path ? path : CIMObjectPath(nameSpace, complete);
}

void Operations::deleteInstance(const String& nameSpace, const CIMObjectPath& name)
{
    const CIMClass cimClass = findClass(nameSpace, name.getClassName(), CIMException::INVALID_CLASS);
    const CIMObjectPath path = inNameSpace(syncedPath(name, cimClass), nameSpace);
    fetchWhole(nameSpace, path, cimClass);
    instanceProvider(providerOf(cimClass)).deleteInstance(m_environment, nameSpace, path);
}

// Whatever CIM error the read ends with, a method call reports that there is no such instance.
void Operations::requireInstance(const String& nameSpace, const CIMObjectPath& path, const CIMClass& cimClass)
{
    try {
        fetchWhole(nameSpace, path, cimClass);
    } catch (const CIMException&) {
        fail(CIMException::NOT_FOUND, "Instance not found: " + path.toString());
    }
}

Operations::MethodResult Operations::invokeMethod(const String& nameSpace, const CIMObjectPath& path,
                                                  bool isInstance, const String& methodName,
                                                  const CIMParamValueArray& arguments)
{
    const CIMClass cimClass = findClass(nameSpace, path.getClassName(), CIMException::NOT_FOUND);
    const CIMObjectPath target = inNameSpace(isInstance ? syncedPath(path, cimClass) : path, nameSpace);
    if (isInstance) {
        requireInstance(nameSpace, target, cimClass);
    }
    const CIMMethod method = cimClass.getMethod(methodName);
    if (!method) {
        fail(CIMException::METHOD_NOT_FOUND, methodName);
    }
    const CIMParamValueArray in = syncedArguments(arguments, method);
    const String ownId = providerId(method.getQualifier("Provider"));
    const CppProviderBaseIFCRef provider =
        ownId.empty() ? providerOf(cimClass) : m_loader.provider(ownId.c_str());
    if (!provider) {
        fail(CIMException::METHOD_NOT_AVAILABLE, methodName);
    }
    MethodResult result;
    result.out = outParameters(method);
    result.returnValue =
        methodProvider(provider).invokeMethod(m_environment, nameSpace, target, methodName, in, result.out);
    return result;
}

} // namespace cimom
