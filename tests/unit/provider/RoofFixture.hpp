#ifndef KV_TESTS_ROOFFIXTURE_HPP
#define KV_TESTS_ROOFFIXTURE_HPP

#include "Environment.hpp"
#include "provider/LANProvider.hpp"

#include <OW_CIM.hpp>
#include <OW_CIMException.hpp>
#include <OW_ResultHandlerIFC.hpp>

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace fakes
{

/// A handler of results that does nothing but call `interruption`, which throws.
template <typename Result>
class InterruptedHandler : public OpenWBEM::ResultHandlerIFC<Result>
{
  public:
    explicit InterruptedHandler(std::function<void()> interruption) : m_interruption(std::move(interruption))
    {
    }

  protected:
    void doHandle(const Result&) override { m_interruption(); }

  private:
    std::function<void()> m_interruption;
};

/// The library's one provider, asked as the object manager asks it.
class Roof : public ServerTest
{
  protected:
    ~Roof() override;

    OpenWBEM::CIMObjectPathArray namesOf(const char* className);
    OpenWBEM::CIMInstanceArray instancesOf(const char* className);
    /// The same, for a handler of one's own.
    void enumNames(const char* className, OpenWBEM::CIMObjectPathResultHandlerIFC& result);
    void enumInstances(const char* className, OpenWBEM::CIMInstanceResultHandlerIFC& result);
    OpenWBEM::CIMInstance get(const OpenWBEM::CIMObjectPath& path);
    void modify(const OpenWBEM::CIMInstance& modified, const OpenWBEM::CIMInstance& previous);
    OpenWBEM::CIMValue invoke(const char* className, const char* method);

    /// All seven operations on one class, by name.
    std::map<std::string, std::function<void()>> operationsOn(const char* className);

    /// What `operation` prints on standard output.
    static std::string traceOf(const std::function<void()>& operation);

    static OpenWBEM::CIMException failureOf(const std::function<void()>& operation);
    static OpenWBEM::CIMObjectPath endpointPath(const char* name);

    LANProvider provider;
    const OpenWBEM::CIMClass noClass{OpenWBEM::CIMNULL};
};

} // namespace fakes

#endif
