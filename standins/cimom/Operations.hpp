#pragma once

#include "ClassRepository.hpp"
#include "ProviderLoader.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_CIMValue.hpp"
#include "OW_WBEMFlags.hpp"

#include <functional>

namespace cimom
{

// What a reading client asks for besides the object. Providers are told; their results are never filtered.
struct ReadOptions {
    bool localOnly = true;
    bool deep = true;
    bool includeQualifiers = false;
    bool includeClassOrigin = false;
    const OpenWBEM::StringArray* propertyList = nullptr; // null: all
};

// The operations on instances: looks up the class, makes what the client sent fit it, and calls the provider
// in OpenWBEM's order. All throw CIMException, and whatever the provider throws. Threads may use them side by
// side if the providers allow that.
class Operations
{
  public:
    using NameHandler = std::function<void(const OpenWBEM::CIMObjectPath&)>;
    using InstanceHandler =
        std::function<void(const OpenWBEM::CIMObjectPath& name, const OpenWBEM::CIMInstance&)>;
    struct MethodResult {
        OpenWBEM::CIMValue returnValue{OpenWBEM::CIMNULL};
        OpenWBEM::CIMParamValueArray out;
    };

    // Bare names of enumerated instances, as OpenWBEM has them, hold only the keys that the instances mark.
    Operations(const ClassRepository& repository, ProviderLoader& loader,
               const OpenWBEM::ProviderEnvironmentIFCRef& environment, bool hasBareNames = false);

    void enumerateInstanceNames(const OpenWBEM::String& nameSpace, const OpenWBEM::String& className,
                                const NameHandler& handler);
    void enumerateInstances(const OpenWBEM::String& nameSpace, const OpenWBEM::String& className,
                            const ReadOptions& options, const InstanceHandler& handler);
    OpenWBEM::CIMInstance getInstance(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& name,
                                      const ReadOptions& options);
    OpenWBEM::CIMValue getProperty(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& name,
                                   const OpenWBEM::String& propertyName);

    // The keys are taken from the instance's properties.
    void modifyInstance(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMInstance& instance,
                        bool includeQualifiers, const OpenWBEM::StringArray* propertyList);
    void setProperty(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& name,
                     const OpenWBEM::String& propertyName, const OpenWBEM::CIMValue& value);
    OpenWBEM::CIMObjectPath createInstance(const OpenWBEM::String& nameSpace,
                                           const OpenWBEM::CIMInstance& instance);
    void deleteInstance(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& name);

    // Calls the method on an instance, or on the class when the path has no keys.
    MethodResult invokeMethod(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& path,
                              bool isInstance, const OpenWBEM::String& methodName,
                              const OpenWBEM::CIMParamValueArray& arguments);

  private:
    OpenWBEM::CIMClass findClass(const OpenWBEM::String& nameSpace, const OpenWBEM::String& className,
                                 OpenWBEM::CIMException::ErrNoType whenUnknown) const;
    OpenWBEM::CIMClassArray withSubclasses(const OpenWBEM::String& nameSpace,
                                           const OpenWBEM::CIMClass& top) const;
    OpenWBEM::CppProviderBaseIFCRef providerOf(const OpenWBEM::CIMClass& cimClass);
    OpenWBEM::CIMInstance fetch(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& path,
                                const OpenWBEM::CIMClass& cimClass, const ReadOptions& options);
    OpenWBEM::CIMInstance fetchWhole(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& path,
                                     const OpenWBEM::CIMClass& cimClass);
    void requireInstance(const OpenWBEM::String& nameSpace, const OpenWBEM::CIMObjectPath& path,
                         const OpenWBEM::CIMClass& cimClass);

    const ClassRepository& m_repository;
    ProviderLoader& m_loader;
    OpenWBEM::ProviderEnvironmentIFCRef m_environment;
    bool m_hasBareNames;
};

} // namespace cimom
