#ifndef OW_CPP_PROVIDER_BASE_IFC_HPP_
#define OW_CPP_PROVIDER_BASE_IFC_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_DateTime.hpp"
#include "OW_IntrusiveCountableBase.hpp"
#include "OW_IntrusiveReference.hpp"
#include "OW_ProviderEnvironmentIFC.hpp"
#include "OW_SharedLibraryReference.hpp"

namespace OpenWBEM
{

// Base of all providers. The object manager also makes and deletes provider objects that it never
// initializes.
class CppProviderBaseIFC : public virtual IntrusiveCountableBase
{
  public:
    CppProviderBaseIFC();
    CppProviderBaseIFC(const CppProviderBaseIFC&);
    CppProviderBaseIFC& operator=(const CppProviderBaseIFC&);
    virtual ~CppProviderBaseIFC();

    virtual void initialize(const ProviderEnvironmentIFCRef& env);
    // What kinds of provider the object is; 0 for those it is not.
    virtual CppInstanceProviderIFC* getInstanceProvider();
    virtual CppSecondaryInstanceProviderIFC* getSecondaryInstanceProvider();
    virtual CppMethodProviderIFC* getMethodProvider();
    virtual CppAssociatorProviderIFC* getAssociatorProvider();
    virtual CppIndicationExportProviderIFC* getIndicationExportProvider();
    virtual CppPolledProviderIFC* getPolledProvider();
    virtual CppIndicationProviderIFC* getIndicationProvider();
    virtual bool canUnload(); // asked when the provider has been idle for some minutes

    DateTime getLastAccessTime() const;
    void updateAccessTime();
    bool getPersist() const; // true: never unloaded for idleness
    void setPersist(bool persist = true);

  private:
    DateTime m_lastAccessTime;
    bool m_persist;
};

typedef SharedLibraryReference<IntrusiveReference<CppProviderBaseIFC>> CppProviderBaseIFCRef;

} // namespace OpenWBEM

// The entry points by which the object manager recognises and makes the provider: library libID.so,
// identifier ID.
#ifdef OW_STATIC_SERVICES
#define OW_PROVIDERFACTORY(derived, id)                                                                      \
    extern "C" OpenWBEM::CppProviderBaseIFC* createProvider##id()                                            \
    {                                                                                                        \
        return new derived;                                                                                  \
    }
#else
#define OW_PROVIDERFACTORY(derived, id)                                                                      \
    extern "C" const char* getOWVersion()                                                                    \
    {                                                                                                        \
        return OW_VERSION;                                                                                   \
    }                                                                                                        \
    extern "C" OpenWBEM::CppProviderBaseIFC* createProvider##id()                                            \
    {                                                                                                        \
        return new derived;                                                                                  \
    }
#endif

// For providers that no class names: the name stands in the source only.
#define OW_PROVIDERFACTORY_NOID(derived, name) OW_PROVIDERFACTORY(derived, NO_ID)

#endif
