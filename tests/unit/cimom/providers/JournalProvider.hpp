#pragma once

#include "OW_CIMException.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"
#include "OW_InstanceProviderInfo.hpp"
#include "OW_MethodProviderInfo.hpp"

#include <cstdio>
#include <cstdlib>

// Prints what the loader does with it. With JOURNAL_PROVIDER=busy in the environment it cannot be unloaded.
class JournalProvider : public OpenWBEM::CppMethodProviderIFC, public OpenWBEM::CppInstanceProviderIFC
{
  public:
    JournalProvider() { print("created"); }
    ~JournalProvider() override { print("destroyed"); }
    JournalProvider(const JournalProvider&) = delete;
    JournalProvider& operator=(const JournalProvider&) = delete;

    void initialize(const OpenWBEM::ProviderEnvironmentIFCRef& env) override
    {
        print("initialized");
        env->getLogger()->logError("a word from the provider");
        std::fprintf(stderr, "item: %s\n", env->getConfigItem("item", "none").c_str());
    }
    OpenWBEM::CppPolledProviderIFC* getPolledProvider() override
    {
        print("polled?");
        return nullptr;
    }
    OpenWBEM::CppIndicationProviderIFC* getIndicationProvider() override
    {
        print("indications?");
        return nullptr;
    }
    void getInstanceProviderInfo(OpenWBEM::InstanceProviderInfo&) override { print("which instances?"); }
    void getMethodProviderInfo(OpenWBEM::MethodProviderInfo&) override { print("which methods?"); }
    bool canUnload() override { return std::getenv("JOURNAL_PROVIDER") == nullptr; }

    void enumInstanceNames(const OpenWBEM::ProviderEnvironmentIFCRef&, const OpenWBEM::String&,
                           const OpenWBEM::String&, OpenWBEM::CIMObjectPathResultHandlerIFC&,
                           const OpenWBEM::CIMClass&) override
    {
    }
    OpenWBEM::CIMInstance getInstance(const OpenWBEM::ProviderEnvironmentIFCRef&, const OpenWBEM::String&,
                                      const OpenWBEM::CIMObjectPath&, OpenWBEM::WBEMFlags::ELocalOnlyFlag,
                                      OpenWBEM::WBEMFlags::EIncludeQualifiersFlag,
                                      OpenWBEM::WBEMFlags::EIncludeClassOriginFlag,
                                      const OpenWBEM::StringArray*, const OpenWBEM::CIMClass&) override
    {
        return OpenWBEM::CIMInstance("KV_Journal");
    }
    OpenWBEM::CIMObjectPath createInstance(const OpenWBEM::ProviderEnvironmentIFCRef&,
                                           const OpenWBEM::String&, const OpenWBEM::CIMInstance&) override
    {
        return OpenWBEM::CIMObjectPath(OpenWBEM::CIMNULL);
    }
    void modifyInstance(const OpenWBEM::ProviderEnvironmentIFCRef&, const OpenWBEM::String&,
                        const OpenWBEM::CIMInstance&, const OpenWBEM::CIMInstance&,
                        OpenWBEM::WBEMFlags::EIncludeQualifiersFlag, const OpenWBEM::StringArray*,
                        const OpenWBEM::CIMClass&) override
    {
    }
    void deleteInstance(const OpenWBEM::ProviderEnvironmentIFCRef&, const OpenWBEM::String&,
                        const OpenWBEM::CIMObjectPath&) override
    {
    }
    OpenWBEM::CIMValue invokeMethod(const OpenWBEM::ProviderEnvironmentIFCRef&, const OpenWBEM::String&,
                                    const OpenWBEM::CIMObjectPath&, const OpenWBEM::String&,
                                    const OpenWBEM::CIMParamValueArray&,
                                    OpenWBEM::CIMParamValueArray&) override
    {
        return OpenWBEM::CIMValue(OpenWBEM::CIMNULL);
    }

  private:
    static void print(const char* what) { std::fprintf(stderr, "%s\n", what); }
};
