#include "Operations.hpp"

#include "ConsoleLogger.hpp"
#include "ProviderEnvironment.hpp"
#include "lanendpoint/ORX_LANEndpoint.hpp"
#include "lansetting/ORX_LANSetting.hpp"
#include "netutil/InterfaceMtu.hpp"
#include "netutil/InterfaceState.hpp"
#include "netutil/LinkSpeed.hpp"
#include "provider/LANProvider.hpp"
#include "provider/SerialisingLANProvider.hpp"
#include "replay.h"

#include <OW_CIMClass.hpp>
#include <OW_CIMInstance.hpp>
#include <OW_CIMObjectPath.hpp>
#include <OW_CIMValue.hpp>
#include <OW_ResultHandlerIFC.hpp>

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

using namespace OpenWBEM;

/// Takes what an enumeration delivers and drops it.
template <typename T>
class Taken : public ResultHandlerIFC<T>
{
  protected:
    void doHandle(const T& result) override { benchmark::DoNotOptimize(&result); }
};

/// An initialised provider and what its operations are called with.
struct Session {
    Session()
    {
        const LoggerRef logger(new cimom::ConsoleLogger(E_NONE_LEVEL));
        environment = ProviderEnvironmentIFCRef(new cimom::ProviderEnvironment(logger, {}));
        provider.initialize(environment);
    }

    void get(const CIMObjectPath& path)
    {
        const CIMInstance instance = provider.getInstance(
            environment, ns, path, WBEMFlags::E_NOT_LOCAL_ONLY, WBEMFlags::E_INCLUDE_QUALIFIERS,
            WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr, CIMClass(CIMNULL));
        benchmark::DoNotOptimize(&instance);
    }

    void enumerate(const String& className)
    {
        Taken<CIMInstance> taken;
        provider.enumInstances(environment, ns, className, taken, WBEMFlags::E_NOT_LOCAL_ONLY,
                               WBEMFlags::E_DEEP, WBEMFlags::E_INCLUDE_QUALIFIERS,
                               WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr, CIMClass(CIMNULL),
                               CIMClass(CIMNULL));
    }

    void enumerateNames(const String& className) { enumerateNames(provider, className); }

    /// The same through the variant for object managers that run reads side by side.
    void enumerateNamesSerialised(const String& className) { enumerateNames(serialising, className); }

    const String ns = "root/cimv2";
    ProviderEnvironmentIFCRef environment;
    LANProvider provider;
    SerialisingLANProvider serialising; // shares what the first one initialised

  private:
    void enumerateNames(CppInstanceProviderIFC& asked, const String& className)
    {
        Taken<CIMObjectPath> taken;
        asked.enumInstanceNames(environment, ns, className, taken, CIMClass(CIMNULL));
    }
};

CIMObjectPath pathOf(const String& className, std::initializer_list<std::pair<const char*, const char*>> keys)
{
    CIMObjectPath path(className, "root/cimv2");
    for (const auto& [name, value] : keys)
        path.setKeyValue(name, CIMValue(String(value)));
    return path;
}

CIMObjectPath endpointPath(const char* name)
{
    return pathOf("ORX_LANEndpoint", {{"Name", name}});
}

std::vector<Operation> interfaceQueries()
{
    const auto state = [](auto query) {
        return [query] {
            std::uint16_t value = 0;
            benchmark::DoNotOptimize(query("eth1", &value));
        };
    };
    const auto replayedStatus = [] { replayStatus("eth1"); };
    return {
        {"kv_get_mtu",
         [] {
             std::uint32_t mtu = 0;
             benchmark::DoNotOptimize(kv_get_mtu("eth1", &mtu));
         },
         [] { replayMtu("eth1"); }},
        {"kv_get_EthernetIfSpeed",
         [] {
             std::uint64_t speed = 0;
             benchmark::DoNotOptimize(kv_get_EthernetIfSpeed("eth1", &speed));
         },
         [] { replaySpeed("eth1"); }},
        {"kv_get_enabledState", state(kv_get_enabledState), replayedStatus},
        {"kv_get_operationalStatus", state(kv_get_operationalStatus), replayedStatus},
        {"kv_get_IfType",
         [] {
             std::uint16_t type = 0;
             benchmark::DoNotOptimize(kv_get_IfType(&type));
         },
         nullptr},
    };
}

/// The models without the CIM instances that the providers make of them.
std::vector<Operation> models()
{
    return {{"ORX_LANEndpoint model eth0",
             [] {
                 ORX_LANEndpoint endpoint(0);
                 unsigned short state = 0;
                 unsigned long long speed = 0;
                 benchmark::DoNotOptimize(endpoint.get());
                 benchmark::DoNotOptimize(endpoint.getOperationalStatus(state));
                 benchmark::DoNotOptimize(endpoint.getEnabledState(state));
                 benchmark::DoNotOptimize(endpoint.getSpeed(speed));
             },
             [] { replayEndpoint("eth0"); }},
            {"ORX_LANSetting model",
             [] {
                 ORX_LANSetting setting;
                 benchmark::DoNotOptimize(setting.get());
             },
             replaySetting}};
}

void addEndpoint(std::vector<Operation>& operations, const std::shared_ptr<Session>& session)
{
    const String className = "ORX_LANEndpoint";
    for (const char* name : {"eth0", "eth1"})
        operations.push_back({std::string("ORX_LANEndpoint getInstance ") + name,
                              [session, path = endpointPath(name)] { session->get(path); },
                              [name] { replayEndpoint(name); }});
    operations.push_back({"ORX_LANEndpoint enumInstances",
                          [session, className] { session->enumerate(className); },
                          [] {
                              for (const char* name : {"eth0", "eth1", "eth2"})
                                  replayEndpoint(name);
                          }});
    operations.push_back({"ORX_LANEndpoint enumInstanceNames",
                          [session, className] { session->enumerateNames(className); }, nullptr});
}

void addSetting(std::vector<Operation>& operations, const std::shared_ptr<Session>& session)
{
    const String name = "ORX_LANServiceSetting";
    const CIMObjectPath path = pathOf(name, {{"InstanceID", "Kalvor:ORX_LANServiceSetting"}});
    operations.push_back(
        {"ORX_LANServiceSetting getInstance", [session, path] { session->get(path); }, replaySetting});
    operations.push_back({"ORX_LANServiceSetting enumInstances",
                          [session, name] { session->enumerate(name); }, replaySetting});
    operations.push_back({"ORX_LANServiceSetting enumInstanceNames",
                          [session, name] { session->enumerateNames(name); }, replaySetting});
}

void addMarking(std::vector<Operation>& operations, const std::shared_ptr<Session>& session)
{
    const String name = "ORX_ALGService";
    const CIMObjectPath path = pathOf(name, {{"SystemCreationClassName", "SCCN"},
                                             {"SystemName", "SN"},
                                             {"CreationClassName", "CCN"},
                                             {"Name", "Name"}});
    operations.push_back({"ORX_ALGService getInstance", [session, path] { session->get(path); }, nullptr});
    operations.push_back(
        {"ORX_ALGService enumInstances", [session, name] { session->enumerate(name); }, nullptr});
    operations.push_back(
        {"ORX_ALGService enumInstanceNames", [session, name] { session->enumerateNames(name); }, nullptr});
    operations.push_back({"ORX_ALGService enumInstanceNames, serialised",
                          [session, name] { session->enumerateNamesSerialised(name); }, nullptr});
}

} // namespace

std::vector<Operation> readOperations()
{
    const auto session = std::make_shared<Session>();
    std::vector<Operation> operations = interfaceQueries();
    for (Operation& model : models())
        operations.push_back(std::move(model));
    addEndpoint(operations, session);
    addSetting(operations, session);
    addMarking(operations, session);
    return operations;
}
