#include "OW_Array.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "SampleClass.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

CIMPropertyArray twoKeys()
{
    CIMPropertyArray keys(1, CIMProperty("Name", CIMValue("eth0")));
    keys.push_back(CIMProperty("Number", CIMValue(UInt16(7))));
    return keys;
}

} // namespace

TEST(CIMObjectPath, ofAClassHasNoKeys)
{
    const CIMObjectPath path("SAMPLE_Port", "root/cimv2");
    EXPECT_EQ("SAMPLE_Port", path.getClassName());
    EXPECT_EQ("SAMPLE_Port", path.getObjectName());
    EXPECT_EQ("root/cimv2", path.getNameSpace());
    EXPECT_TRUE(path.isClassPath());
    EXPECT_FALSE(path.isInstancePath());
    EXPECT_EQ("/root/cimv2:SAMPLE_Port", path.toString());
    EXPECT_EQ("SAMPLE_Port", path.modelPath());
}

TEST(CIMObjectPath, quotesAllItsKeys)
{
    const CIMObjectPath path("SAMPLE_Port", twoKeys());
    EXPECT_TRUE(path.isInstancePath());
    EXPECT_EQ("SAMPLE_Port.Name=\"eth0\",Number=\"7\"", path.modelPath());
    EXPECT_EQ("/:SAMPLE_Port.Name=\"eth0\",Number=\"7\"", path.toString());
}

TEST(CIMObjectPath, escapesKeyValues)
{
    CIMObjectPath path("C", "root");
    path.setKeyValue("k", CIMValue("a\\b\"c\nd"));
    EXPECT_EQ("/root:C.k=\"a\\\\b\\\"c\\nd\"", path.toString());
    EXPECT_EQ("a\\\\b\\\"c\\nd", CIMObjectPath::escape("a\\b\"c\nd"));
    EXPECT_EQ("a\\b\"cnd", CIMObjectPath::unEscape("a\\\\b\\\"c\\nd"));
}

TEST(CIMObjectPath, writesNullKeysAsNull)
{
    const CIMObjectPath path("C", CIMPropertyArray(1, CIMProperty("k", CIMDataType(CIMDataType::STRING))));
    EXPECT_EQ("C.k=\"null\"", path.modelPath());
}

TEST(CIMObjectPath, namesARemoteHost)
{
    CIMObjectPath path("C", "root");
    path.setHost("server");
    EXPECT_EQ("http://server/root:C", path.toString());
    path.setHost("localhost");
    EXPECT_EQ("/root:C", path.toString());
    path.setHost("127.0.0.1");
    EXPECT_EQ("/root:C", path.toString());
}

TEST(CIMObjectPath, trimsItsNamespace)
{
    EXPECT_EQ("root/cimv2", CIMObjectPath("C", " //root/cimv2 ").getNameSpace());
    CIMObjectPath path("C");
    path.setNameSpace("/root");
    EXPECT_EQ("root", path.getNameSpace());
}

TEST(CIMObjectPath, findsKeysIgnoringCase)
{
    const CIMObjectPath path("C", twoKeys());
    EXPECT_EQ("Name", path.getKey("NAME").getName());
    EXPECT_EQ("eth0", path.getKeyValue("name").toString());
    EXPECT_EQ("Name", path.getKeyT("name").getName());
    EXPECT_TRUE(path.keyHasValue("Number"));
}

TEST(CIMObjectPath, hasNullForAbsentKeys)
{
    const CIMObjectPath path("C", twoKeys());
    EXPECT_FALSE(path.getKey("Id"));
    EXPECT_FALSE(path.getKeyValue("Id"));
    EXPECT_FALSE(path.keyHasValue("Id"));
    EXPECT_EQ("NoSuchPropertyException: Id", thrown([&path] { path.getKeyT("Id"); }));
}

TEST(CIMObjectPath, replacesItsKeysAndStripsTheirQualifiers)
{
    CIMProperty key("Name", CIMValue("eth1"));
    key.setQualifier(CIMQualifier::createKeyQualifier());
    CIMObjectPath path("C", twoKeys());
    path.setKeys(CIMPropertyArray(1, key));
    EXPECT_EQ("C.Name=\"eth1\"", path.modelPath());
    EXPECT_TRUE(path.getKey("Name").getQualifiers().empty());
}

TEST(CIMObjectPath, takesClassAndKeysOfAnInstance)
{
    CIMProperty key("Name", CIMValue("eth1"));
    key.setQualifier(CIMQualifier::createKeyQualifier());
    CIMInstance instance("SAMPLE_Port");
    instance.setProperty(key);
    instance.setProperty("Level", CIMValue(UInt16(1)));
    EXPECT_EQ("/root:SAMPLE_Port.Name=\"eth1\"", CIMObjectPath("root", instance).toString());
    EXPECT_EQ("D.Name=\"eth1\"", CIMObjectPath("D").setKeys(instance).modelPath());
}

TEST(CIMObjectPath, setsOneKey)
{
    CIMObjectPath path("C", twoKeys());
    path.setKeyValue("NAME", CIMValue("eth1"));
    path.setKeyValue("Id", CIMValue(UInt16(1)));
    EXPECT_EQ("C.Name=\"eth1\",Number=\"7\",Id=\"1\"", path.modelPath());
}

TEST(CIMObjectPath, addsKeysWithoutLookingForThem)
{
    CIMObjectPath path("C");
    path.addKey("Name", CIMValue("a"));
    path.addKey(CIMProperty("Name", CIMValue("b")));
    EXPECT_EQ("C.Name=\"a\",Name=\"b\"", path.modelPath());
}

TEST(CIMObjectPath, changesItsClassName)
{
    CIMObjectPath path("C");
    EXPECT_EQ("D", path.setClassName("D").getClassName());
    EXPECT_EQ("E", path.setObjectName("E").getClassName());
}

TEST(CIMObjectPath, equalsTheSameNameInAnyCaseAndOrder)
{
    CIMObjectPath path("C", twoKeys());
    path.setNameSpace("root");
    CIMPropertyArray reversed(1, CIMProperty("NUMBER", CIMValue(UInt16(7))));
    reversed.push_back(CIMProperty("NAME", CIMValue("eth0")));
    CIMObjectPath other("c", reversed);
    other.setNameSpace("ROOT");
    other.setHost("server");
    EXPECT_TRUE(path.equals(other));
    EXPECT_TRUE(path == other);
    EXPECT_FALSE(path != other);
}

TEST(CIMObjectPath, differsInNamespaceClassOrKeys)
{
    const CIMObjectPath path("C", twoKeys());
    CIMObjectPath elsewhere(path);
    elsewhere.setNameSpace("root");
    EXPECT_TRUE(path != elsewhere);
    EXPECT_TRUE(path != CIMObjectPath("D", twoKeys()));
    EXPECT_TRUE(path != CIMObjectPath("C"));
    EXPECT_TRUE(path != CIMObjectPath("C", twoKeys()).setKeyValue("Name", CIMValue("ETH0")));
    CIMPropertyArray typed(twoKeys());
    typed[1] = CIMProperty("Number", CIMValue(UInt32(7)));
    EXPECT_TRUE(path != CIMObjectPath("C", typed));
}

TEST(CIMObjectPath, equalsAnotherNullWhenNull)
{
    EXPECT_TRUE(CIMObjectPath(CIMNULL) == CIMObjectPath(CIMNULL));
    EXPECT_THROW((void)(CIMObjectPath(CIMNULL) != CIMObjectPath()), Exception);
}

TEST(CIMObjectPath, takesTheKeysOfTheClass)
{
    CIMClass port = sampleClass();
    CIMProperty number("Number", CIMDataType(CIMDataType::UINT16));
    number.setQualifier(CIMQualifier::createKeyQualifier());
    port.addProperty(number);
    CIMObjectPath path("SAMPLE_Port", "root");
    path.addKey("Extra", CIMValue("x"));
    path.addKey("Level", CIMValue(UInt16(1)));
    path.addKey("number", CIMValue(Int64(7)));
    path.syncWithClass(port);
    EXPECT_EQ("/root:SAMPLE_Port.Level=\"1\",Number=\"7\",Name=\"null\"", path.toString());
    EXPECT_EQ(CIMDataType::UINT16, path.getKey("Number").getDataType().getType());
    EXPECT_EQ(CIMDataType::STRING, path.getKey("Name").getDataType().getType());
    EXPECT_FALSE(path.getKeyValue("Name"));
    EXPECT_TRUE(path.getKey("Number").getQualifiers().empty());
}

TEST(CIMObjectPath, keepsAKeyThatIsThereTwice)
{
    CIMObjectPath path("SAMPLE_Port");
    path.addKey("Name", CIMValue("port1"));
    path.addKey("Name", CIMValue("port0"));
    EXPECT_EQ("SAMPLE_Port.Name=\"port1\",Name=\"port0\"", path.syncWithClass(sampleClass()).modelPath());
}

TEST(CIMObjectPath, isNotCompletedWhenItIsThatOfAClass)
{
    EXPECT_TRUE(CIMObjectPath("SAMPLE_Port").syncWithClass(sampleClass()).isClassPath());
}

TEST(CIMObjectPath, isParsedWithItsNamespace)
{
    const CIMObjectPath path = CIMObjectPath::parse(R"(/root/cimv2:C.a="x,y=\"z\"",b="7")");
    EXPECT_EQ("root/cimv2", path.getNameSpace());
    EXPECT_EQ("C", path.getClassName());
    EXPECT_EQ("x,y=\"z\"", path.getKeyValue("a").toString());
    EXPECT_EQ(CIMDataType::STRING, path.getKeyValue("b").getType());
    EXPECT_EQ(R"(/root/cimv2:C.a="x,y=\"z\"",b="7")", path.toString());
}

TEST(CIMObjectPath, isNullWhenParsedFromNothing)
{
    EXPECT_FALSE(CIMObjectPath::parse(""));
}

TEST(CIMObjectPath, isNotParsedWithoutAKey)
{
    try {
        CIMObjectPath::parse("root:C");
        FAIL() << "nothing thrown";
    } catch (const CIMException& e) {
        EXPECT_EQ(CIMException::INVALID_PARAMETER, e.getErrNo());
    }
}

TEST(CIMObjectPath, isNotChangedThroughACopy)
{
    CIMObjectPath path("C", twoKeys());
    CIMObjectPath copy(path);
    copy.setKeyValue("Name", CIMValue("eth1")).setClassName("D");
    EXPECT_EQ("C.Name=\"eth0\",Number=\"7\"", path.modelPath());
}
