#include "provider/SerialisingLANProvider.hpp"

#include <mutex>
#include <pthread.h>

using namespace OpenWBEM; // the operations are all about OpenWBEM's types

namespace
{

/// What std::lock_guard asks for. std::mutex would make the library need a newer C++ library than the server
/// has.
class Mutex
{
  public:
    void lock() { pthread_mutex_lock(&m_mutex); }
    void unlock() { pthread_mutex_unlock(&m_mutex); }

  private:
    pthread_mutex_t m_mutex = PTHREAD_MUTEX_INITIALIZER;
};

Mutex oneAtATime;

using Turn = std::lock_guard<Mutex>;

} // namespace

SerialisingLANProvider::~SerialisingLANProvider() = default;

void SerialisingLANProvider::initialize(const ProviderEnvironmentIFCRef& env)
{
    const Turn turn(oneAtATime);
    m_provider.initialize(env);
}

void SerialisingLANProvider::cleanup()
{
    const Turn turn(oneAtATime);
    m_provider.cleanup();
}

void SerialisingLANProvider::enumInstanceNames(const ProviderEnvironmentIFCRef& env, const String& ns,
                                               const String& className, CIMObjectPathResultHandlerIFC& result,
                                               const CIMClass& cimClass)
{
    const Turn turn(oneAtATime);
    m_provider.enumInstanceNames(env, ns, className, result, cimClass);
}

void SerialisingLANProvider::enumInstances(const ProviderEnvironmentIFCRef& env, const String& ns,
                                           const String& className, CIMInstanceResultHandlerIFC& result,
                                           WBEMFlags::ELocalOnlyFlag localOnly, WBEMFlags::EDeepFlag deep,
                                           WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                           WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                           const StringArray* propertyList, const CIMClass& requestedClass,
                                           const CIMClass& cimClass)
{
    const Turn turn(oneAtATime);
    m_provider.enumInstances(env, ns, className, result, localOnly, deep, includeQualifiers,
                             includeClassOrigin, propertyList, requestedClass, cimClass);
}

CIMInstance SerialisingLANProvider::getInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                                const CIMObjectPath& instanceName,
                                                WBEMFlags::ELocalOnlyFlag localOnly,
                                                WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                                WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                                const StringArray* propertyList, const CIMClass& cimClass)
{
    const Turn turn(oneAtATime);
    return m_provider.getInstance(env, ns, instanceName, localOnly, includeQualifiers, includeClassOrigin,
                                  propertyList, cimClass);
}

CIMObjectPath SerialisingLANProvider::createInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                                     const CIMInstance& cimInstance)
{
    const Turn turn(oneAtATime);
    return m_provider.createInstance(env, ns, cimInstance);
}

void SerialisingLANProvider::deleteInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                            const CIMObjectPath& cop)
{
    const Turn turn(oneAtATime);
    m_provider.deleteInstance(env, ns, cop);
}

void SerialisingLANProvider::modifyInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                            const CIMInstance& modifiedInstance,
                                            const CIMInstance& previousInstance,
                                            WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                            const StringArray* propertyList, const CIMClass& theClass)
{
    const Turn turn(oneAtATime);
    m_provider.modifyInstance(env, ns, modifiedInstance, previousInstance, includeQualifiers, propertyList,
                              theClass);
}

CIMValue SerialisingLANProvider::invokeMethod(const ProviderEnvironmentIFCRef& env, const String& ns,
                                              const CIMObjectPath& path, const String& methodName,
                                              const CIMParamValueArray& in, CIMParamValueArray& out)
{
    const Turn turn(oneAtATime);
    return m_provider.invokeMethod(env, ns, path, methodName, in, out);
}
