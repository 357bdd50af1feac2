#include "ClassRepository.hpp"
#include "MofParser.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMMethod.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

using namespace OpenWBEM;

ClassRepository repositoryOf(const char* mof)
{
    ClassRepository repository;
    repository.add(parseMof(mof, "test.mof"));
    return repository;
}

CIMClass classOf(const ClassRepository& repository, const char* name)
{
    return repository.nameSpace(defaultNameSpace).findClass(name);
}

std::string errorOf(const char* mof)
{
    try {
        repositoryOf(mof);
    } catch (const MofError& e) {
        return e.what();
    }
    return "no error";
}

std::string namesOf(const CIMClassArray& classes)
{
    std::string names;
    for (const CIMClass& cimClass : classes) {
        names += std::string(cimClass.getName().c_str()) + " ";
    }
    return names;
}

std::string textOf(const CIMQualifier& qualifier)
{
    return std::string(qualifier.getName().c_str()) + "=" + qualifier.getValue().toString().c_str() +
           (qualifier.getPropagated() ? " (inherited)" : "");
}

TEST(ClassRepository, FindsClassesInAnyLetterCase)
{
    const ClassRepository repository = repositoryOf("class KV_Thing { };");
    EXPECT_TRUE(classOf(repository, "kv_thing").getName().equals("KV_Thing"));
    EXPECT_FALSE(classOf(repository, "KV_Other"));
}

TEST(ClassRepository, NamespacesIgnoreLetterCaseAndMustBeThere)
{
    const ClassRepository repository = repositoryOf("#pragma namespace(\"root/Other\") class A { };");
    EXPECT_TRUE(repository.nameSpace("ROOT/other").findClass("A"));
    EXPECT_FALSE(repository.nameSpace("root/cimv2").findClass("A"));
    try {
        repository.nameSpace("root/none");
        FAIL();
    } catch (const CIMException& e) {
        EXPECT_EQ(e.getErrNo(), CIMException::INVALID_NAMESPACE);
        EXPECT_STREQ(e.getMessage(), "namespace does not exist (root/none)");
    }
}

TEST(ClassRepository, StandardQualifiersNeedNoDeclaration)
{
    const ClassRepository repository =
        repositoryOf("[Abstract, Provider(\"c++::X\"), Description(\"d\"), Version(\"1\")] class A {"
                     " [Key, MaxLen(8), Required] string k; [Read, Write, ValueMap{\"1\"}, Values{\"one\"}, "
                     "Units(\"u\")] uint8 v; };");
    const CIMProperty key = classOf(repository, "A").getProperty("k");
    EXPECT_TRUE(key.isKey());
    EXPECT_TRUE(key.getQualifier("Key").hasFlavor(CIMFlavor(CIMFlavor::DISABLEOVERRIDE)));
    EXPECT_EQ(key.getQualifier("maxlen").getValue(), CIMValue(UInt32(8)));
    const CIMQualifier description = classOf(repository, "A").getQualifier("Description");
    EXPECT_TRUE(description.hasFlavor(CIMFlavor(CIMFlavor::TRANSLATE)));
    EXPECT_EQ(classOf(repository, "A").getProperty("v").getQualifier("Values").getValue(),
              CIMValue(StringArray(1, "one")));
}

TEST(ClassRepository, AnOwnDeclarationReplacesTheStandardOne)
{
    const ClassRepository repository =
        repositoryOf("Qualifier Key : boolean = false, Scope(property); class A { [Key] string k; };");
    const CIMQualifier key = classOf(repository, "A").getProperty("k").getQualifier("Key");
    EXPECT_FALSE(key.hasFlavor(CIMFlavor(CIMFlavor::DISABLEOVERRIDE)));
}

TEST(ClassRepository, OwnPropertiesComeBeforeInheritedOnes)
{
    const ClassRepository repository =
        repositoryOf("class A { uint8 one; uint8 two; }; class B : A { uint8 three; uint8 TWO; };");
    std::string features;
    for (const CIMProperty& property : classOf(repository, "B").getAllProperties()) {
        features += std::string(property.getName().c_str()) + ":" + property.getOriginClass().c_str() +
                    (property.getPropagated() ? ":inherited " : " ");
    }
    EXPECT_EQ(features, "three:B TWO:B one:A:inherited ");
}

TEST(ClassRepository, MethodsAreInheritedUnlessOverridden)
{
    const ClassRepository repository =
        repositoryOf("class A { uint8 f(); uint8 g(); }; class B : A { uint16 F(); };");
    const CIMMethodArray methods = classOf(repository, "B").getAllMethods();
    ASSERT_EQ(methods.size(), 2U);
    EXPECT_TRUE(methods[0].getName().equals("F"));
    EXPECT_FALSE(methods[0].getPropagated());
    EXPECT_TRUE(methods[1].getName().equals("g"));
    EXPECT_TRUE(methods[1].getPropagated());
}

TEST(ClassRepository, ClassQualifiersAreInheritedByTheirFlavor)
{
    const ClassRepository repository =
        repositoryOf("[Abstract, Version(\"1\"), Description(\"a\"), Provider(\"c++::X\")] "
                     "class A { }; [Description(\"b\")] class B : A { };");
    std::string qualifiers;
    for (const CIMQualifier& qualifier : classOf(repository, "B").getQualifiers()) {
        qualifiers += textOf(qualifier) + "; ";
    }
    EXPECT_EQ(qualifiers, "Description=b; Provider=c++::X (inherited); ");
}

TEST(ClassRepository, AQualifierRepeatedWithTheSameValueCountsAsInherited)
{
    const ClassRepository repository =
        repositoryOf("[Provider(\"c++::X\")] class A { [Write] uint8 p; }; "
                     "[Provider(\"c++::X\")] class B : A { [Write] uint8 p; };");
    EXPECT_EQ(textOf(classOf(repository, "B").getQualifier("Provider")), "Provider=c++::X (inherited)");
    EXPECT_EQ(textOf(classOf(repository, "B").getProperty("p").getQualifier("Write")),
              "Write=true (inherited)");
}

TEST(ClassRepository, SubclassesComeDirectOrDeep)
{
    const ClassRepository repository =
        repositoryOf("class A { }; class B : A { }; class X { }; class C : B { }; class D : A { };");
    const NameSpace& classes = repository.nameSpace(defaultNameSpace);
    EXPECT_EQ(namesOf(classes.subclasses("a", false)), "B D ");
    EXPECT_EQ(namesOf(classes.subclasses("A", true)), "B C D ");
    EXPECT_EQ(namesOf(classes.subclasses("", false)), "A X ");
    EXPECT_EQ(namesOf(classes.subclasses("", true)), "A B C D X ");
}

TEST(ClassRepository, DefaultsTakeTheTypeOfTheirProperty)
{
    const ClassRepository repository =
        repositoryOf("class A { uint16 n = 7; sint8 list[] = {-1, 2}; boolean b = true; "
                     "real32 r = 1; datetime d = \"00000001000000.000000:000\"; };");
    const CIMClass parsed = classOf(repository, "A");
    EXPECT_EQ(parsed.getProperty("n").getValue(), CIMValue(UInt16(7)));
    EXPECT_EQ(parsed.getProperty("list").getValue().toString(), String("-1,2"));
    EXPECT_EQ(parsed.getProperty("list").getValue().getType(), CIMDataType::SINT8);
    EXPECT_EQ(parsed.getProperty("b").getValue(), CIMValue(true));
    EXPECT_EQ(parsed.getProperty("r").getValue(), CIMValue(Real32(1)));
    EXPECT_EQ(parsed.getProperty("d").getValue().toString(), String("00000001000000.000000:000"));
}

TEST(ClassRepository, NamesThatMeanNothingAreRefusedWhereTheyStand)
{
    EXPECT_EQ(errorOf("class A : None { };"),
              "test.mof:1:11: expected a class declared before, found 'None'");
    EXPECT_EQ(errorOf("class A { };\nclass a { };"),
              "test.mof:2:7: expected a class not declared yet, found 'a'");
    EXPECT_EQ(errorOf("[Kee] class A { };"), "test.mof:1:2: expected a declared qualifier, found 'Kee'");
    EXPECT_EQ(errorOf("class A { uint8 x; uint8 X; };"),
              "test.mof:1:26: expected a name not used in the class yet, found 'X'");
    EXPECT_EQ(errorOf("[Description] class A { };"),
              "test.mof:1:2: expected a qualifier with a value, found 'Description'");
}

TEST(ClassRepository, ValuesThatDoNotFitTheirTypeAreRefusedWhereTheyStand)
{
    EXPECT_EQ(errorOf("class A { uint8 x = 256; };"),
              "test.mof:1:21: expected a value of type uint8, found '256'");
    EXPECT_EQ(errorOf("class A { uint8 x = \"1\"; };"),
              "test.mof:1:21: expected a value of type uint8, found '1'");
    EXPECT_EQ(errorOf("class A { string x = true; };"),
              "test.mof:1:22: expected a value of type string, found 'true'");
    EXPECT_EQ(errorOf("class A { datetime x = \"now\"; };"),
              "test.mof:1:24: expected a value of type datetime, found 'now'");
    EXPECT_EQ(errorOf("class A { uint8 x = {1}; };"), "test.mof:1:21: expected a single value, found '{'");
    EXPECT_EQ(errorOf("class A { uint8 x[] = 1; };"),
              "test.mof:1:23: expected an array in braces, found '1'");
    EXPECT_EQ(errorOf("[Description(5)] class A { };"),
              "test.mof:1:14: expected a value of type string, found '5'");
}

} // namespace
} // namespace cimom::test
