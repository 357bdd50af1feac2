#include "ProviderFixture.hpp"

#include <OW_ResultHandlerIFC.hpp>

namespace fakes
{

using namespace OpenWBEM; // the provider's interface is all of OpenWBEM's types

namespace
{

template <typename T>
class Collector : public ResultHandlerIFC<T>
{
  public:
    explicit Collector(const std::function<void()>& onResult) : m_onResult(onResult) {}
    std::vector<T> results;

  protected:
    void doHandle(const T& result) override
    {
        m_onResult();
        results.push_back(result);
    }

  private:
    const std::function<void()>& m_onResult;
};

const CIMClass noClass(CIMNULL);

} // namespace

ProviderTest::ProviderTest()
{
    provider.initialize(env);
    world.clearJournal();
}

std::vector<CIMObjectPath> ProviderTest::enumInstanceNames(const String& className, const String& ns)
{
    Collector<CIMObjectPath> names(onResult);
    provider.enumInstanceNames(env, ns, className, names, noClass);
    return names.results;
}

std::vector<CIMInstance> ProviderTest::enumInstances(const String& className)
{
    Collector<CIMInstance> instances(onResult);
    provider.enumInstances(env, "root/cimv2", className, instances, WBEMFlags::E_NOT_LOCAL_ONLY,
                           WBEMFlags::E_DEEP, WBEMFlags::E_INCLUDE_QUALIFIERS,
                           WBEMFlags::E_INCLUDE_CLASS_ORIGIN, nullptr, noClass, noClass);
    return instances.results;
}

CIMInstance ProviderTest::getInstance(const CIMObjectPath& path)
{
    return provider.getInstance(env, "root/cimv2", path, WBEMFlags::E_NOT_LOCAL_ONLY,
                                WBEMFlags::E_INCLUDE_QUALIFIERS, WBEMFlags::E_INCLUDE_CLASS_ORIGIN, nullptr,
                                noClass);
}

CIMInstance ProviderTest::getInstance(const String& name)
{
    return getInstance(pathTo(name));
}

void ProviderTest::modifyInstance(const CIMInstance& modified)
{
    const CIMInstance noPrevious(CIMNULL);
    provider.modifyInstance(env, "root/cimv2", modified, noPrevious, WBEMFlags::E_INCLUDE_QUALIFIERS, nullptr,
                            noClass);
}

CIMObjectPath ProviderTest::pathTo(const String& name)
{
    CIMObjectPath path("ORX_LANEndpoint");
    path.setKeyValue("Name", CIMValue(name));
    return path;
}

CIMInstance ProviderTest::instanceOf(const String& name, const std::vector<CIMProperty>& properties)
{
    CIMInstance instance("ORX_LANEndpoint");
    instance.setProperty(CIMProperty("Name", CIMValue(name)));
    for (const CIMProperty& one : properties)
        instance.setProperty(one);
    return instance;
}

CIMProperty ProviderTest::property(const char* name, const char* value)
{
    return CIMProperty(name, CIMValue(String(value)));
}

CIMProperty ProviderTest::property(const char* name, Int32 value)
{
    return CIMProperty(name, CIMValue(value));
}

CIMProperty ProviderTest::property(const char* name, bool value)
{
    return CIMProperty(name, CIMValue(Bool(value)));
}

Lines ProviderTest::shown(const CIMInstance& instance)
{
    Lines lines;
    const CIMPropertyArray properties = instance.getProperties();
    for (const CIMProperty& one : properties) {
        std::string line = one.toString().c_str();
        const CIMQualifierArray qualifiers = one.getQualifiers();
        for (const CIMQualifier& qualifier : qualifiers)
            line += std::string(" [") + qualifier.getName().c_str() + "=" +
                    qualifier.getValue().toString().c_str() + "]";
        lines.push_back(line);
    }
    return lines;
}

std::string ProviderTest::shown(const CIMInstance& instance, const std::string& name)
{
    for (const std::string& line : shown(instance))
        if (line.find(":" + name + "=") != std::string::npos)
            return line;
    return "";
}

std::string ProviderTest::unknownError(const char* operation, const String& target)
{
    return std::string("Unknown Error:  while performing ") + operation + " operation on " + target.c_str() +
           "\n";
}

} // namespace fakes
