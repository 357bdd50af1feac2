#ifndef KV_TESTS_DSCP_PROVIDERTEST_HPP
#define KV_TESTS_DSCP_PROVIDERTEST_HPP

#include "FullService.hpp"
#include "ServiceTest.hpp"

#include "dscp/ORX_ALGServiceProvider.hpp"

#include <OW_CIMException.hpp>
#include <OW_CIMInstance.hpp>
#include <OW_CIMObjectPath.hpp>
#include <OW_CIMValue.hpp>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace dscptest
{

/// A CIM failure as a client's tools tell it: code and bare text.
struct CimFailure {
    int code;
    std::string text;
    bool operator==(const CimFailure& other) const { return code == other.code && text == other.text; }
};
std::ostream& operator<<(std::ostream& out, const CimFailure& failure);

/// The failure that `call` raises; it must come from the provider's unit.
CimFailure failureOf(const std::function<void()>& call);

/// Raises a CIM failure that is none of the provider's, and expects just that one of `call`.
[[noreturn]] void failElsewhere();
void expectFailureElsewhere(const std::function<void()>& call);

using Values = std::vector<std::pair<const char*, OpenWBEM::CIMValue>>;

OpenWBEM::CIMValue text(const std::string& value);
OpenWBEM::CIMValue uint16(std::uint16_t value);
OpenWBEM::CIMValue boolean(bool value);
OpenWBEM::CIMValue null();

/// The keys of the service that is built at the start, and of one with four other keys.
Values startUpKeys();
Values keys(const std::string& systemCreationClassName, const std::string& systemName,
            const std::string& creationClassName, const std::string& name);
/// `values` without the one named `name`, or with null in its place.
Values without(const char* name, Values values);
Values withNull(const char* name, Values values);

OpenWBEM::CIMObjectPath path(const Values& keys);
OpenWBEM::CIMInstance instance(const Values& properties);
Values operator+(Values first, const Values& second);

/// "<type>:<name>=<value>" per property.
Lines properties(const OpenWBEM::CIMInstance& instance);

/// A manager whose creating and destroying are the test's.
class ProgrammedManager : public ORX_ALGServiceInstanceManager
{
  public:
    ORX_ALGService* createORX_ALGService(const std::string& systemCreationClassName,
                                         const std::string& systemName, const std::string& creationClassName,
                                         const std::string& name) override;
    void destroyORX_ALGService(ORX_ALGService* service) override;

    std::function<void()> onCreate = [] {};      ///< called before an object is created; may throw
    std::function<void(FullService&)> onCreated; ///< called with the created object
    std::function<void()> onDestroy = [] {};     ///< called before an object is destroyed; may throw
};

/// Calls the provider as the object manager does. Whatever happens, nothing may reach the object manager's
/// log.
class ProviderTest : public ServiceTest
{
  protected:
    void TearDown() override;

    /// Lets the provider build the server's service from a registry that holds nothing but zeros.
    void initialize();

    OpenWBEM::CIMInstance getInstance(const OpenWBEM::CIMObjectPath& path);
    std::vector<OpenWBEM::CIMInstance> enumInstances(const std::string& className = "ORX_ALGService");
    Lines enumInstanceNames(const std::string& nameSpace = "root/cimv2",
                            const std::string& className = "ORX_ALGService");
    std::string createInstance(const OpenWBEM::CIMInstance& instance,
                               const std::string& nameSpace = "root/cimv2");
    void deleteInstance(const OpenWBEM::CIMObjectPath& path);
    void modifyInstance(const OpenWBEM::CIMInstance& instance);
    /// Modifies the service built at the start.
    void modify(const Values& values) { modifyInstance(instance(startUpKeys() + values)); }

    OpenWBEM::String ns = "root/cimv2"; ///< of the requests that do not name theirs
    ORX_ALGServiceProvider provider;
};

} // namespace dscptest

#endif
