#include "ProviderTest.hpp"

#include "FlowTexts.hpp"

#include <OW_ResultHandlerIFC.hpp>

#include <algorithm>
#include <cstring>

namespace dscptest
{

using OpenWBEM::CIMInstance;
using OpenWBEM::CIMNULL;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;
using OpenWBEM::String;
namespace Flags = OpenWBEM::WBEMFlags;

std::ostream& operator<<(std::ostream& out, const CimFailure& failure)
{
    return out << failure.code << " \"" << failure.text << "\"";
}

CimFailure failureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const OpenWBEM::CIMException& e) {
        EXPECT_STREQ(e.getFile(), "ORX_ALGServiceProvider.cpp");
        EXPECT_GT(e.getLine(), 0);
        return {e.getErrNo(), e.OpenWBEM::Exception::getMessage()};
    }
    ADD_FAILURE() << "no failure";
    return {0, ""};
}

void failElsewhere()
{
    throw OpenWBEM::CIMException("Elsewhere.cpp", 99, OpenWBEM::CIMException::ACCESS_DENIED, "not today");
}

void expectFailureElsewhere(const std::function<void()>& call)
{
    try {
        call();
        ADD_FAILURE() << "no failure";
    } catch (const OpenWBEM::CIMException& e) {
        EXPECT_EQ(e.getErrNo(), OpenWBEM::CIMException::ACCESS_DENIED);
        EXPECT_STREQ(e.OpenWBEM::Exception::getMessage(), "not today");
        EXPECT_STREQ(e.getFile(), "Elsewhere.cpp");
        EXPECT_EQ(e.getLine(), 99);
    }
}

CIMValue text(const std::string& value)
{
    return CIMValue(String(value.c_str()));
}

CIMValue uint16(std::uint16_t value)
{
    return CIMValue(OpenWBEM::UInt16(value));
}

CIMValue boolean(bool value)
{
    return CIMValue(value);
}

CIMValue null()
{
    return CIMValue(CIMNULL);
}

Values keys(const std::string& systemCreationClassName, const std::string& systemName,
            const std::string& creationClassName, const std::string& name)
{
    return {{"SystemCreationClassName", text(systemCreationClassName)},
            {"SystemName", text(systemName)},
            {"CreationClassName", text(creationClassName)},
            {"Name", text(name)}};
}

Values startUpKeys()
{
    return keys("SCCN", "SN", "CCN", "Name");
}

Values without(const char* name, Values values)
{
    values.erase(std::remove_if(values.begin(), values.end(),
                                [name](const auto& value) { return std::strcmp(value.first, name) == 0; }),
                 values.end());
    return values;
}

Values withNull(const char* name, Values values)
{
    for (auto& value : values) {
        if (std::strcmp(value.first, name) == 0)
            value.second = null();
    }
    return values;
}

Values operator+(Values first, const Values& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

namespace
{

CIMProperty property(const char* name, const CIMValue& value)
{
    if (value)
        return CIMProperty(name, value);
    return CIMProperty(name, OpenWBEM::CIMDataType(OpenWBEM::CIMDataType::STRING));
}

} // namespace

CIMObjectPath path(const Values& keys)
{
    CIMObjectPath built("ORX_ALGService", "root/cimv2");
    OpenWBEM::CIMPropertyArray properties;
    for (const auto& [name, value] : keys)
        properties.push_back(property(name, value));
    built.setKeys(properties);
    return built;
}

CIMInstance instance(const Values& properties)
{
    CIMInstance built("ORX_ALGService");
    for (const auto& [name, value] : properties)
        built.setProperty(property(name, value));
    return built;
}

Lines properties(const CIMInstance& instance)
{
    Lines lines;
    const OpenWBEM::CIMPropertyArray properties = instance.getProperties();
    for (const CIMProperty& each : properties)
        lines.push_back(each.toString().c_str());
    return lines;
}

ORX_ALGService* ProgrammedManager::createORX_ALGService(const std::string& systemCreationClassName,
                                                        const std::string& systemName,
                                                        const std::string& creationClassName,
                                                        const std::string& name)
{
    onCreate();
    auto* const created = new FullService(systemCreationClassName, systemName, creationClassName, name);
    if (onCreated)
        onCreated(*created);
    return created;
}

void ProgrammedManager::destroyORX_ALGService(ORX_ALGService* service)
{
    onDestroy();
    delete service;
}

void ProviderTest::TearDown()
{
    EXPECT_EQ(world.journal(fakes::Log), Lines());
    ServiceTest::TearDown();
}

void ProviderTest::initialize()
{
    store("KLonKLEnabled", 0);
    for (const FlowTexts& flow : flowTexts)
        store(flow.menuKey, 0);
    provider.initialize(env);
    world.clearJournal();
}

CIMInstance ProviderTest::getInstance(const CIMObjectPath& path)
{
    return provider.getInstance(env, ns, path, Flags::E_NOT_LOCAL_ONLY, Flags::E_INCLUDE_QUALIFIERS,
                                Flags::E_INCLUDE_CLASS_ORIGIN, nullptr, OpenWBEM::CIMClass(CIMNULL));
}

namespace
{

class Instances : public OpenWBEM::CIMInstanceResultHandlerIFC
{
  public:
    std::vector<CIMInstance> handled;

  protected:
    void doHandle(const CIMInstance& instance) override { handled.push_back(instance); }
};

class Names : public OpenWBEM::CIMObjectPathResultHandlerIFC
{
  public:
    Lines handled;

  protected:
    void doHandle(const CIMObjectPath& name) override { handled.push_back(name.toString().c_str()); }
};

} // namespace

std::vector<CIMInstance> ProviderTest::enumInstances(const std::string& className)
{
    Instances result;
    provider.enumInstances(env, ns, className.c_str(), result, Flags::E_NOT_LOCAL_ONLY, Flags::E_DEEP,
                           Flags::E_INCLUDE_QUALIFIERS, Flags::E_INCLUDE_CLASS_ORIGIN, nullptr,
                           OpenWBEM::CIMClass(CIMNULL), OpenWBEM::CIMClass(CIMNULL));
    return result.handled;
}

Lines ProviderTest::enumInstanceNames(const std::string& nameSpace, const std::string& className)
{
    Names result;
    provider.enumInstanceNames(env, nameSpace.c_str(), className.c_str(), result,
                               OpenWBEM::CIMClass(CIMNULL));
    return result.handled;
}

std::string ProviderTest::createInstance(const CIMInstance& instance, const std::string& nameSpace)
{
    return provider.createInstance(env, nameSpace.c_str(), instance).toString().c_str();
}

void ProviderTest::deleteInstance(const CIMObjectPath& path)
{
    provider.deleteInstance(env, ns, path);
}

void ProviderTest::modifyInstance(const CIMInstance& instance)
{
    provider.modifyInstance(env, ns, instance, CIMInstance(CIMNULL), Flags::E_INCLUDE_QUALIFIERS, nullptr,
                            OpenWBEM::CIMClass(CIMNULL));
}

} // namespace dscptest
