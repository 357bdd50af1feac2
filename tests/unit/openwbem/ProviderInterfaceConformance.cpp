// The interface that the provider, the object managers and the tests are built against, member by member and
// type by type. The stand-in and an installed OpenWBEM of the late 3.0.3 headers must both satisfy this file;
// where it stops compiling, one of them differs. It uses nothing that only one of them has.
#include "OW_CIM.hpp"
#include "OW_CIMOMHandleIFC.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"
#include "OW_InstanceProviderInfo.hpp"
#include "OW_LogMessage.hpp"
#include "OW_Logger.hpp"
#include "OW_MethodProviderInfo.hpp"
#include "OW_OperationContext.hpp"
#include "OW_ProviderEnvironmentIFC.hpp"
#include "OW_RepositoryIFC.hpp"
#include "OW_ResultHandlers.hpp"
#include "OW_WBEMFlags.hpp"
#include <type_traits>

using namespace OpenWBEM;

namespace
{

// Takes the address of a member as a pointer of exactly the given type; overloads and constness must match.
template <class Pointer>
void exactly(Pointer)
{
}

static_assert(std::is_same<ProviderEnvironmentIFCRef, IntrusiveReference<ProviderEnvironmentIFC>>::value,
              "Ref");
static_assert(std::is_same<CIMOMHandleIFCRef, IntrusiveReference<CIMOMHandleIFC>>::value, "Ref");
static_assert(std::is_same<CppProviderBaseIFCRef,
                           SharedLibraryReference<IntrusiveReference<CppProviderBaseIFC>>>::value,
              "Ref");
static_assert(std::is_same<CIMInstanceResultHandlerIFC, ResultHandlerIFC<CIMInstance>>::value, "handler");
static_assert(std::is_same<CIMObjectPathResultHandlerIFC, ResultHandlerIFC<CIMObjectPath>>::value, "handler");
static_assert(std::is_constructible<CIMInstanceArrayBuilder, CIMInstanceArray&>::value, "collector");
static_assert(std::is_constructible<CIMObjectPathArrayBuilder, CIMObjectPathArray&>::value, "collector");
static_assert(std::is_copy_constructible<CppProviderBaseIFC>::value, "providers are copied");
static_assert(std::is_abstract<CppInstanceProviderIFC>::value &&
                  std::is_abstract<CppMethodProviderIFC>::value,
              "providers are implemented");

// Every virtual operation as a host and a provider override it; one that the interface lacks does not
// compile.
class HostLogger : public Logger
{
  public:
    HostLogger() : Logger("LANProvider", ELogLevel(5)) {}

  protected:
    void doProcessLogMessage(const LogMessage& message) const override
    {
        exactly<const String*>(&message.component);
        exactly<const String*>(&message.category);
        exactly<const String*>(&message.message);
        exactly<const char* const*>(&message.filename);
        exactly<const int*>(&message.fileline);
        exactly<const char* const*>(&message.methodname);
    }
    LoggerRef doClone() const override { return LoggerRef(new HostLogger(*this)); }
};

class HostEnvironment : public ProviderEnvironmentIFC
{
  public:
    CIMOMHandleIFCRef getCIMOMHandle() const override { return CIMOMHandleIFCRef(); }
    CIMOMHandleIFCRef getRepositoryCIMOMHandle() const override { return CIMOMHandleIFCRef(); }
    RepositoryIFCRef getRepository() const override { return RepositoryIFCRef(); }
    LoggerRef getLogger() const override { return LoggerRef(new HostLogger); }
    LoggerRef getLogger(const String&) const override { return LoggerRef(new HostLogger); }
    String getConfigItem(const String&, const String& defRetVal = "") const override { return defRetVal; }
    String getUserName() const override { return ""; }
    OperationContext& getOperationContext() override { return m_context; }

  private:
    OperationContext m_context;
};

class InstanceHandler : public CIMInstanceResultHandlerIFC
{
  protected:
    void doHandle(const CIMInstance&) override {}
};

class BothProviders : public CppMethodProviderIFC, public CppInstanceProviderIFC
{
  public:
    ~BothProviders() override {}
    void initialize(const ProviderEnvironmentIFCRef&) override {}
    CppSecondaryInstanceProviderIFC* getSecondaryInstanceProvider() override { return 0; }
    CppAssociatorProviderIFC* getAssociatorProvider() override { return 0; }
    CppIndicationExportProviderIFC* getIndicationExportProvider() override { return 0; }
    CppPolledProviderIFC* getPolledProvider() override { return 0; }
    CppIndicationProviderIFC* getIndicationProvider() override { return 0; }
    bool canUnload() override { return true; }
    void getInstanceProviderInfo(InstanceProviderInfo& info) override { info.addInstrumentedClass("C"); }
    void getMethodProviderInfo(MethodProviderInfo& info) override { info.addInstrumentedClass("C"); }
    void enumInstanceNames(const ProviderEnvironmentIFCRef&, const String&, const String&,
                           CIMObjectPathResultHandlerIFC&, const CIMClass&) override
    {
    }
    CIMInstance getInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&,
                            WBEMFlags::ELocalOnlyFlag, WBEMFlags::EIncludeQualifiersFlag,
                            WBEMFlags::EIncludeClassOriginFlag, const StringArray*, const CIMClass&) override
    {
        return CIMInstance();
    }
    CIMObjectPath createInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMInstance&) override
    {
        return CIMObjectPath();
    }
    void modifyInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMInstance&,
                        const CIMInstance&, WBEMFlags::EIncludeQualifiersFlag, const StringArray*,
                        const CIMClass&) override
    {
    }
    void deleteInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&) override {}
    CIMValue invokeMethod(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&,
                          const String&, const CIMParamValueArray&, CIMParamValueArray&) override
    {
        return CIMValue(CIMNULL);
    }
};

// enumInstances is not pure: a provider without it can be made. So can one that inherits the base once for
// both.
static_assert(!std::is_abstract<BothProviders>::value, "complete");
static_assert(std::is_convertible<BothProviders*, CppProviderBaseIFC*>::value, "one base");
static_assert(std::is_convertible<BothProviders*, IntrusiveCountableBase*>::value, "one count");
static_assert(!std::is_abstract<HostLogger>::value && !std::is_abstract<HostEnvironment>::value &&
                  !std::is_abstract<InstanceHandler>::value,
              "complete");

} // namespace

void checkProviderInterface()
{
    exactly<void (CppInstanceProviderIFC::*)(
        const ProviderEnvironmentIFCRef&, const String&, const String&, CIMInstanceResultHandlerIFC&,
        WBEMFlags::ELocalOnlyFlag, WBEMFlags::EDeepFlag, WBEMFlags::EIncludeQualifiersFlag,
        WBEMFlags::EIncludeClassOriginFlag, const StringArray*, const CIMClass&, const CIMClass&)>(
        &CppInstanceProviderIFC::enumInstances);
    exactly<CppInstanceProviderIFC* (CppProviderBaseIFC::*)()>(&CppProviderBaseIFC::getInstanceProvider);
    exactly<CppMethodProviderIFC* (CppProviderBaseIFC::*)()>(&CppProviderBaseIFC::getMethodProvider);
    exactly<DateTime (CppProviderBaseIFC::*)() const>(&CppProviderBaseIFC::getLastAccessTime);
    exactly<void (CppProviderBaseIFC::*)()>(&CppProviderBaseIFC::updateAccessTime);
    exactly<bool (CppProviderBaseIFC::*)() const>(&CppProviderBaseIFC::getPersist);
    exactly<void (CppProviderBaseIFC::*)(bool)>(&CppProviderBaseIFC::setPersist);
    exactly<LoggerRef (ProviderEnvironmentIFC::*)() const>(&ProviderEnvironmentIFC::getLogger);
    exactly<LoggerRef (ProviderEnvironmentIFC::*)(const String&) const>(&ProviderEnvironmentIFC::getLogger);
    exactly<void (CIMInstanceResultHandlerIFC::*)(const CIMInstance&)>(&CIMInstanceResultHandlerIFC::handle);
    exactly<void (InstanceProviderInfo::*)(String const&)>(&InstanceProviderInfo::addInstrumentedClass);
    exactly<void (InstanceProviderInfo::*)(InstClassInfo const&)>(
        &InstanceProviderInfo::addInstrumentedClass);
    exactly<void (MethodProviderInfo::*)(String const&)>(&MethodProviderInfo::addInstrumentedClass);
}
