#include "dscp/ORX_ALGServiceProvider.hpp"

#include "dscp/CFG_Exception.hpp"
#include "dscp/ORX_ALGServiceImplInstanceManager.hpp"
#include "dscp/ServiceProperty.hpp"
#include "reporting/Failure.hpp"

#include <OW_CIMException.hpp>
#include <OW_CIMValue.hpp>

#include <string>

using OpenWBEM::CIMClass;
using OpenWBEM::CIMException;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMInstanceResultHandlerIFC;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMObjectPathResultHandlerIFC;
using OpenWBEM::CIMParamValueArray;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;
using OpenWBEM::ProviderEnvironmentIFCRef;
using OpenWBEM::String;
using OpenWBEM::StringArray;
using reporting::fail;
using reporting::withIdentifier;

namespace
{

using Status = ORX_ALGService::Status;

constexpr const char* unit = "ORX_ALGServiceProvider.cpp";
constexpr const char* servedClass = "ORX_ALGService";
constexpr const char* cannotCreate = "The system cannot create the instance specified.\n";

String decimal(Status status)
{
    return String(OpenWBEM::UInt32(status));
}

/// The text of a failure that has nothing but a status number.
String statusText(Status status)
{
    return withIdentifier(String(), decimal(status).c_str());
}

bool isReservedForInvalidValues(Status status)
{
    return status == ORX_ALGService::InvalidValue || status == ORX_ALGService::InvalidSet;
}

/// Looks up the object that four key values name. `keyNamed` gives the key with a name, or null.
template <typename KeyNamed>
ORX_ALGService& findService(const KeyNamed& keyNamed)
{
    const auto keyText = [&keyNamed](const char* name) -> std::string {
        const CIMProperty key = keyNamed(name);
        if (!key || !key.getValue())
            fail({unit, __LINE__}, CIMException::NOT_FOUND);
        return key.getValue().toString().c_str();
    };
    const std::string systemCreationClassName = keyText("SystemCreationClassName");
    const std::string systemName = keyText("SystemName");
    const std::string creationClassName = keyText("CreationClassName");
    const std::string name = keyText("Name");
    try {
        return *ORX_ALGService::getInstanceManager()->get(systemCreationClassName, systemName,
                                                          creationClassName, name);
    } catch (const CFG_Exception&) {
        fail({unit, __LINE__}, CIMException::NOT_FOUND);
    }
}

/// A key of a new object: the empty text if the property is missing or null.
std::string newKey(const CIMInstance& instance, const char* name)
{
    const CIMValue value = instance.getPropertyValue(name);
    return value ? value.toString().c_str() : "";
}

ORX_ALGService& createService(const CIMInstance& instance)
{
    try {
        return *ORX_ALGService::getInstanceManager()->createORX_ALGService(
            newKey(instance, "SystemCreationClassName"), newKey(instance, "SystemName"),
            newKey(instance, "CreationClassName"), newKey(instance, "Name"));
    } catch (const CFG_InstanceCreationFailed&) {
        fail({unit, __LINE__}, CIMException::NOT_SUPPORTED, withIdentifier(cannotCreate, "CFG_000_0005"));
    }
}

/// Deletes an object whose creation failed half-way. A failure to delete it is dropped: the first one is
/// reported.
void discardService(ORX_ALGService& service)
{
    try {
        ORX_ALGService::getInstanceManager()->destroyORX_ALGService(&service);
    } catch (...) {
    }
}

void checkLength(const dscp::ServiceProperties::Row& property, const CIMValue& value)
{
    // Characters, as the class's MaxLen counts them: a name in Greek letters has twice as many bytes.
    if (property.maxLength == 0 || value.toString().UTF8Length() <= property.maxLength)
        return;
    const String limit(OpenWBEM::UInt32(property.maxLength));
    const String text = String("The length of ") + property.name + " must be <= " + limit + "\n";
    const String identifier = String("CFG_000_0004,MOF_Props_ORX_ALGService_") + property.name + "," + limit;
    fail({unit, __LINE__}, CIMException::INVALID_PARAMETER, withIdentifier(text, identifier.c_str()));
}

void applyProperty(ORX_ALGService& service, const CIMProperty& sent)
{
    const auto* property = dscp::serviceProperties.rowToSet(sent);
    if (!property)
        return;
    const CIMValue value = sent.getValue();
    checkLength(*property, value);
    const Status status = property->set(service, value);
    // "$prop.getName()" stays as it is: clients match this text.
    if (status == ORX_ALGService::InvalidValue)
        fail({unit, __LINE__}, CIMException::INVALID_PARAMETER,
             withIdentifier("The value of $prop.getName() is invalid.\n",
                            "CFG_000_0000,MOF_Props_ORX_ALGService_$prop.getName()"));
    if (status != ORX_ALGService::Done)
        fail({unit, __LINE__}, CIMException::FAILED, statusText(status));
}

} // namespace

ORX_ALGServiceProvider::~ORX_ALGServiceProvider() = default;

void ORX_ALGServiceProvider::initialize(const ProviderEnvironmentIFCRef& /*env*/)
{
    ORX_ALGService::SetInstanceManager(new ORX_ALGServiceImplInstanceManager);
}

void ORX_ALGServiceProvider::cleanup() {}

void ORX_ALGServiceProvider::enumInstanceNames(const ProviderEnvironmentIFCRef& /*env*/, const String& ns,
                                               const String& className, CIMObjectPathResultHandlerIFC& result,
                                               const CIMClass& /*cimClass*/)
{
    ORX_ALGServiceInstanceManager& manager = *ORX_ALGService::getInstanceManager();
    manager.startIteration();
    while (manager.hasNext())
        result.handle(ORX_ALGServiceToCIMObjectPath(*manager.next(), className, ns));
    manager.endIteration();
}

void ORX_ALGServiceProvider::enumInstances(
    const ProviderEnvironmentIFCRef& /*env*/, const String& /*ns*/, const String& /*className*/,
    CIMInstanceResultHandlerIFC& result, OpenWBEM::WBEMFlags::ELocalOnlyFlag /*localOnly*/,
    OpenWBEM::WBEMFlags::EDeepFlag /*deep*/,
    OpenWBEM::WBEMFlags::EIncludeQualifiersFlag /*includeQualifiers*/,
    OpenWBEM::WBEMFlags::EIncludeClassOriginFlag /*includeClassOrigin*/, const StringArray* /*propertyList*/,
    const CIMClass& /*requestedClass*/, const CIMClass& /*cimClass*/)
{
    ORX_ALGServiceInstanceManager& manager = *ORX_ALGService::getInstanceManager();
    // One instance for all objects: a property that a later object does not support keeps the earlier one's
    // value.
    CIMInstance instance(servedClass);
    manager.startIteration();
    while (manager.hasNext()) {
        ORX_ALGServiceToCIMInstance(*manager.next(), instance);
        result.handle(instance);
    }
    manager.endIteration();
}

CIMInstance
ORX_ALGServiceProvider::getInstance(const ProviderEnvironmentIFCRef& /*env*/, const String& /*ns*/,
                                    const CIMObjectPath& instanceName,
                                    OpenWBEM::WBEMFlags::ELocalOnlyFlag /*localOnly*/,
                                    OpenWBEM::WBEMFlags::EIncludeQualifiersFlag /*includeQualifiers*/,
                                    OpenWBEM::WBEMFlags::EIncludeClassOriginFlag /*includeClassOrigin*/,
                                    const StringArray* /*propertyList*/, const CIMClass& /*cimClass*/)
{
    const ORX_ALGService& service = getORX_ALGServiceWithCIMObjectPath(instanceName);
    CIMInstance instance(servedClass);
    ORX_ALGServiceToCIMInstance(service, instance);
    return instance;
}

CIMObjectPath ORX_ALGServiceProvider::createInstance(const ProviderEnvironmentIFCRef& /*env*/,
                                                     const String& ns, const CIMInstance& cimInstance)
{
    ORX_ALGService& service = createService(cimInstance);
    try {
        modifyInstance(service, cimInstance);
    } catch (const CFG_Exception&) {
        discardService(service);
        fail({unit, __LINE__}, CIMException::FAILED, withIdentifier(cannotCreate, "CFG_000_0005"));
    } catch (const CIMException&) {
        discardService(service);
        throw;
    }
    return ORX_ALGServiceToCIMObjectPath(service, servedClass, ns);
}

void ORX_ALGServiceProvider::deleteInstance(const ProviderEnvironmentIFCRef& /*env*/, const String& /*ns*/,
                                            const CIMObjectPath& cop)
{
    ORX_ALGService& service = getORX_ALGServiceWithCIMObjectPath(cop);
    try {
        ORX_ALGService::getInstanceManager()->destroyORX_ALGService(&service);
    } catch (const CFG_Exception&) {
        fail({unit, __LINE__}, CIMException::FAILED,
             withIdentifier("The system cannot delete the instance specified.\n", "CFG_000_0006"));
    }
}

void ORX_ALGServiceProvider::modifyInstance(const ProviderEnvironmentIFCRef& /*env*/, const String& /*ns*/,
                                            const CIMInstance& modifiedInstance,
                                            const CIMInstance& /*previousInstance*/,
                                            OpenWBEM::WBEMFlags::EIncludeQualifiersFlag /*includeQualifiers*/,
                                            const StringArray* /*propertyList*/, const CIMClass& /*theClass*/)
{
    ORX_ALGService& service = getORX_ALGServiceWithCIMInstance(modifiedInstance);
    try {
        modifyInstance(service, modifiedInstance);
    } catch (const CFG_Exception&) {
        fail({unit, __LINE__}, CIMException::FAILED, "Could not modify the configuration as requested.\n");
    }
}

CIMValue ORX_ALGServiceProvider::invokeMethod(const ProviderEnvironmentIFCRef& /*env*/, const String& /*ns*/,
                                              const CIMObjectPath& /*path*/, const String& /*methodName*/,
                                              const CIMParamValueArray& /*in*/, CIMParamValueArray& /*out*/)
{
    fail({unit, __LINE__}, CIMException::METHOD_NOT_FOUND);
}

void ORX_ALGServiceProvider::modifyInstance(ORX_ALGService& service, const CIMInstance& instance)
{
    if (const Status status = service.startChange(); status != ORX_ALGService::Done) {
        const String argument = isReservedForInvalidValues(status) ? String("CFG_000_0001") : decimal(status);
        fail({unit, __LINE__}, CIMException::FAILED,
             withIdentifier("Could not make the requested change.\n", argument.c_str()));
    }

    const OpenWBEM::CIMPropertyArray properties = instance.getProperties();
    for (const CIMProperty& property : properties)
        applyProperty(service, property);

    const Status status = service.endChange();
    if (isReservedForInvalidValues(status))
        fail({unit, __LINE__}, CIMException::INVALID_PARAMETER,
             withIdentifier("One or more of the values specified for the ORX_ALGService was invalid.\n",
                            "CFG_000_0001"));
    if (status != ORX_ALGService::Done)
        fail({unit, __LINE__}, CIMException::FAILED, statusText(status));
}

void ORX_ALGServiceProvider::ORX_ALGServiceToCIMInstance(const ORX_ALGService& service, CIMInstance& instance)
{
    dscp::serviceProperties.fill(instance, service);
}

CIMObjectPath ORX_ALGServiceProvider::ORX_ALGServiceToCIMObjectPath(const ORX_ALGService& service,
                                                                    const String& className, const String& ns)
{
    const auto keys = dscp::serviceProperties.keys(dscp::numberOfServiceKeys, service);
    if (!keys)
        fail({unit, __LINE__}, CIMException::NOT_FOUND);
    CIMObjectPath path(className, ns);
    path.setKeys(*keys);
    return path;
}

ORX_ALGService& ORX_ALGServiceProvider::getORX_ALGServiceWithCIMObjectPath(const CIMObjectPath& path)
{
    return findService([&path](const char* name) { return path.getKey(name); });
}

ORX_ALGService& ORX_ALGServiceProvider::getORX_ALGServiceWithCIMInstance(const CIMInstance& instance)
{
    return findService([&instance](const char* name) { return instance.getProperty(name); });
}
