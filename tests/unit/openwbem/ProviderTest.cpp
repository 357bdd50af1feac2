#include "OW_CIM.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"
#include "OW_InstanceProviderInfo.hpp"
#include "OW_MethodProviderInfo.hpp"
#include "OW_ResultHandlers.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;
using namespace OpenWBEM::WBEMFlags;

// The count lives in the library, where the analyzer does not look.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)

namespace
{

// Serves the instances a and b; all other operations are not supported.
class TwoInstances : public CppMethodProviderIFC, public CppInstanceProviderIFC
{
  public:
    void enumInstanceNames(const ProviderEnvironmentIFCRef&, const String& ns, const String& className,
                           CIMObjectPathResultHandlerIFC& result, const CIMClass&) override
    {
        CIMObjectPath path(className, ns);
        path.setKeyValue("Name", CIMValue("a"));
        result.handle(path);
        path.setKeyValue("Name", CIMValue("b"));
        result.handle(path);
    }
    CIMInstance getInstance(const ProviderEnvironmentIFCRef&, const String& ns, const CIMObjectPath& path,
                            ELocalOnlyFlag localOnly, EIncludeQualifiersFlag includeQualifiers,
                            EIncludeClassOriginFlag includeClassOrigin, const StringArray* propertyList,
                            const CIMClass& cimClass) override
    {
        CIMInstance instance(path.getClassName());
        instance.setProperty("Name", path.getKeyValue("Name"));
        String asked;
        asked.format("%s %d%d%d %s %s", ns.c_str(), int(localOnly), int(includeQualifiers),
                     int(includeClassOrigin), (*propertyList)[0].c_str(), cimClass.getName().c_str());
        instance.setProperty("Asked", CIMValue(asked));
        return instance;
    }
    CIMObjectPath createInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMInstance&) override
    {
        throw CIMException("TwoInstances.cpp", 1, CIMException::NOT_SUPPORTED);
    }
    void modifyInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMInstance&,
                        const CIMInstance&, EIncludeQualifiersFlag, const StringArray*,
                        const CIMClass&) override
    {
        throw CIMException("TwoInstances.cpp", 2, CIMException::NOT_SUPPORTED);
    }
    void deleteInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&) override
    {
        throw CIMException("TwoInstances.cpp", 3, CIMException::NOT_SUPPORTED);
    }
    CIMValue invokeMethod(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&,
                          const String& methodName, const CIMParamValueArray&, CIMParamValueArray&) override
    {
        return CIMValue(methodName);
    }
};

class NoProvider : public CppProviderBaseIFC
{
};

} // namespace

OW_PROVIDERFACTORY(TwoInstances, TwoInstances)

TEST(ProviderFactory, tellsTheVersionOfTheInterface)
{
    EXPECT_STREQ("3.0.3", getOWVersion());
}

TEST(ProviderFactory, makesAProvider)
{
    const IntrusiveReference<CppProviderBaseIFC> provider(createProviderTwoInstances());
    EXPECT_TRUE(dynamic_cast<TwoInstances*>(provider.getPtr()));
}

TEST(Provider, tellsWhatItIs)
{
    const IntrusiveReference<CppProviderBaseIFC> provider(createProviderTwoInstances());
    auto* const itself = dynamic_cast<TwoInstances*>(provider.getPtr());
    EXPECT_EQ(static_cast<CppInstanceProviderIFC*>(itself), provider->getInstanceProvider());
    EXPECT_EQ(static_cast<CppMethodProviderIFC*>(itself), provider->getMethodProvider());
    EXPECT_EQ(nullptr, provider->getSecondaryInstanceProvider());
    EXPECT_EQ(nullptr, provider->getAssociatorProvider());
    EXPECT_EQ(nullptr, provider->getIndicationExportProvider());
    EXPECT_EQ(nullptr, provider->getPolledProvider());
    EXPECT_EQ(nullptr, provider->getIndicationProvider());
}

TEST(Provider, isNothingByDefault)
{
    const IntrusiveReference<CppProviderBaseIFC> provider(new NoProvider);
    provider->initialize(ProviderEnvironmentIFCRef());
    EXPECT_EQ(nullptr, provider->getInstanceProvider());
    EXPECT_EQ(nullptr, provider->getMethodProvider());
    EXPECT_TRUE(provider->canUnload());
}

TEST(Provider, isUnloadedUnlessItPersists)
{
    const IntrusiveReference<CppProviderBaseIFC> provider(new NoProvider);
    EXPECT_FALSE(provider->getPersist());
    provider->setPersist();
    EXPECT_TRUE(provider->getPersist());
    provider->setPersist(false);
    EXPECT_FALSE(provider->getPersist());
}

TEST(Provider, remembersItsLastRequest)
{
    const IntrusiveReference<CppProviderBaseIFC> provider(new NoProvider);
    const DateTime before = provider->getLastAccessTime();
    provider->updateAccessTime();
    EXPECT_TRUE(before < provider->getLastAccessTime());
}

TEST(Provider, registersNothingByDefault)
{
    const IntrusiveReference<CppProviderBaseIFC> provider(createProviderTwoInstances());
    InstanceProviderInfo instanceInfo;
    MethodProviderInfo methodInfo;
    provider->getInstanceProvider()->getInstanceProviderInfo(instanceInfo);
    provider->getMethodProvider()->getMethodProviderInfo(methodInfo);
    EXPECT_TRUE(instanceInfo.getClassInfo().empty());
    EXPECT_TRUE(methodInfo.getClassInfo().empty());
}

TEST(Provider, enumeratesInstancesThroughTheirNames)
{
    const IntrusiveReference<CppProviderBaseIFC> provider(createProviderTwoInstances());
    const StringArray list(1, String("Name"));
    CIMInstanceArray found;
    CIMInstanceArrayBuilder result(found);
    provider->getInstanceProvider()->enumInstances(
        ProviderEnvironmentIFCRef(), "root", "C", result, E_LOCAL_ONLY, E_SHALLOW, E_INCLUDE_QUALIFIERS,
        E_EXCLUDE_CLASS_ORIGIN, &list, CIMClass("Asked"), CIMClass("C"));
    ASSERT_EQ(2U, found.size());
    EXPECT_EQ("instance of C {\nName = a;\nAsked = root 110 Name C;\n}\n", found[0].toString());
    EXPECT_EQ("instance of C {\nName = b;\nAsked = root 110 Name C;\n}\n", found[1].toString());
}

TEST(ResultCollector, keepsWhatItWasGivenWhenTheCallerGoesOnChangingIt)
{
    CIMObjectPathArray paths;
    CIMObjectPathArrayBuilder pathResult(paths);
    CIMObjectPath path("C");
    pathResult.handle(path);
    path.setClassName("D");
    pathResult.handle(path);
    ASSERT_EQ(2U, paths.size());
    EXPECT_EQ("C", paths[0].getClassName());
    EXPECT_EQ("D", paths[1].getClassName());

    CIMInstanceArray instances;
    CIMInstanceArrayBuilder instanceResult(instances);
    CIMInstance instance("C");
    instanceResult.handle(instance);
    instance.setClassName("D");
    ASSERT_EQ(1U, instances.size());
    EXPECT_EQ("C", instances[0].getClassName());
}

TEST(ProviderInfo, collectsClasses)
{
    InstanceProviderInfo instanceInfo;
    instanceInfo.addInstrumentedClass("SAMPLE_Port");
    instanceInfo.addInstrumentedClass(InstClassInfo("SAMPLE_Service", StringArray(1, String("root"))));
    instanceInfo.setProviderName("SampleProvider");
    ASSERT_EQ(2U, instanceInfo.getClassInfo().size());
    EXPECT_EQ("SAMPLE_Port", instanceInfo.getClassInfo()[0].className);
    EXPECT_TRUE(instanceInfo.getClassInfo()[0].namespaces.empty());
    EXPECT_EQ("SAMPLE_Service", instanceInfo.getClassInfo()[1].className);
    EXPECT_EQ(StringArray(1, String("root")), instanceInfo.getClassInfo()[1].namespaces);
    EXPECT_EQ("SampleProvider", instanceInfo.getProviderName());

    MethodProviderInfo methodInfo;
    methodInfo.addInstrumentedClass("SAMPLE_Port");
    methodInfo.addInstrumentedClass(
        MethodProviderInfo::ClassInfo("SAMPLE_Service", StringArray(), StringArray(1, String("Adjust"))));
    ASSERT_EQ(2U, methodInfo.getClassInfo().size());
    EXPECT_EQ("SAMPLE_Port", methodInfo.getClassInfo()[0].className);
    EXPECT_TRUE(methodInfo.getClassInfo()[0].methods.empty());
    EXPECT_EQ(StringArray(1, String("Adjust")), methodInfo.getClassInfo()[1].methods);
}

// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
