#include "MofParser.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

MofClass onlyClass(const char* text)
{
    const MofDocument document = parseMof(text, "test.mof");
    EXPECT_EQ(document.size(), 1U);
    return std::get<MofClass>(document.at(0));
}

std::string errorOf(const char* text)
{
    try {
        parseMof(text, "test.mof");
    } catch (const MofError& e) {
        return e.what();
    }
    return "no error";
}

TEST(MofParser, ReadsAClassWithItsSuperclass)
{
    const MofClass parsed = onlyClass("class A : B { };");
    EXPECT_EQ(parsed.name, "A");
    EXPECT_EQ(parsed.superClass, "B");
    EXPECT_EQ(parsed.position.column, 7);
    EXPECT_EQ(parsed.superClassPosition.column, 11);
}

TEST(MofParser, KeywordsIgnoreLetterCase)
{
    EXPECT_EQ(onlyClass("CLASS A { [key] STRING x = NULL; };").properties.at(0).name, "x");
}

TEST(MofParser, ReadsPropertiesWithTypesQualifiersAndDefaults)
{
    const MofClass parsed = onlyClass(R"(class A {
        [Key, MaxLen(256)] string Name;
        uint16 List[] = {1, 0x2};
        uint8 Octets[4];
        B REF Other;
        [Write] boolean On = TRUE;
    };)");
    ASSERT_EQ(parsed.properties.size(), 5U);
    EXPECT_EQ(parsed.properties[0].qualifiers.at(0).name, "Key");
    EXPECT_FALSE(parsed.properties[0].qualifiers[0].hasValue);
    EXPECT_EQ(parsed.properties[0].qualifiers.at(1).value.elements.at(0).text, "256");
    EXPECT_TRUE(parsed.properties[0].defaultValue.isNull());
    EXPECT_TRUE(parsed.properties[1].type.isArray);
    EXPECT_EQ(parsed.properties[1].defaultValue.elements.at(1).text, "2");
    EXPECT_EQ(parsed.properties[2].type.arraySize, 4);
    EXPECT_TRUE(parsed.properties[3].type.isReference);
    EXPECT_EQ(parsed.properties[3].type.name, "B");
    EXPECT_EQ(parsed.properties[4].defaultValue.elements.at(0).text, "true");
}

TEST(MofParser, ReadsMethodsWithParameters)
{
    const MofClass parsed = onlyClass("class A { [Description(\"d\")] uint32 Adjust([In] uint16 Level, "
                                      "[In(false), Out] string Report[]); string Reset(); };");
    ASSERT_EQ(parsed.methods.size(), 2U);
    EXPECT_EQ(parsed.methods[0].name, "Adjust");
    EXPECT_EQ(parsed.methods[0].type.name, "uint32");
    EXPECT_EQ(parsed.methods[0].parameters.at(0).name, "Level");
    EXPECT_EQ(parsed.methods[0].parameters.at(1).qualifiers.at(0).value.elements.at(0).text, "false");
    EXPECT_TRUE(parsed.methods[0].parameters.at(1).type.isArray);
    EXPECT_TRUE(parsed.methods[1].parameters.empty());
}

TEST(MofParser, NeighbouringStringsAreOne)
{
    const MofClass parsed = onlyClass("[Description(\"one \" \n \"two\")] class A { };");
    EXPECT_EQ(parsed.qualifiers.at(0).value.elements.at(0).text, "one two");
}

TEST(MofParser, ArrayQualifiersStandInBraces)
{
    const MofClass parsed =
        onlyClass("class A { [ValueMap{\"1\", \"..\"}, Values{\"a\" \"b\", \"c\"}] uint16 x; };");
    EXPECT_EQ(parsed.properties.at(0).qualifiers.at(1).value.elements.at(0).text, "ab");
    EXPECT_TRUE(parsed.properties.at(0).qualifiers.at(1).value.isArray);
}

TEST(MofParser, FlavorsBehindAQualifierAreReadAndLeftToItsDeclaration)
{
    EXPECT_EQ(onlyClass("[Description(\"d\") : Translatable EnableOverride, Abstract] class A { };")
                  .qualifiers.size(),
              2U);
}

TEST(MofParser, ReadsQualifierDeclarations)
{
    const MofDocument document = parseMof(
        "Qualifier Key : boolean = false, Scope(property, Reference), Flavor(DisableOverride, ToSubclass);\n"
        "Qualifier Warn : string[] = {\"a\"}, Scope(any), Flavor(Restricted, Translatable);\n"
        "Qualifier Plain : uint32, Scope(class);",
        "test.mof");
    ASSERT_EQ(document.size(), 3U);
    const auto& key = std::get<MofQualifierDeclaration>(document[0]);
    EXPECT_EQ(key.scopes, (std::vector<std::string>{"property", "reference"}));
    EXPECT_FALSE(key.flavors.overridable);
    EXPECT_TRUE(key.flavors.toSubclass);
    const auto& warn = std::get<MofQualifierDeclaration>(document[1]);
    EXPECT_TRUE(warn.type.isArray);
    EXPECT_TRUE(warn.flavors.overridable);
    EXPECT_FALSE(warn.flavors.toSubclass);
    EXPECT_TRUE(warn.flavors.translatable);
    EXPECT_TRUE(std::get<MofQualifierDeclaration>(document[2]).defaultValue.isNull());
}

TEST(MofParser, TheNamespacePragmaHoldsForWhatFollows)
{
    const MofDocument document =
        parseMof("class A {}; #pragma namespace(\"root/x\") class B {};", "test.mof");
    EXPECT_EQ(std::get<MofClass>(document.at(0)).nameSpace, "");
    EXPECT_EQ(std::get<MofClass>(document.at(1)).nameSpace, "root/x");
}

TEST(MofParser, OtherPragmasSayNothing)
{
    EXPECT_TRUE(parseMof("#pragma locale(\"en_US\")", "test.mof").empty());
}

TEST(MofParser, ErrorsNameThePlaceAndWhatWasExpected)
{
    EXPECT_EQ(errorOf("class A {\n  string x\n};"), "test.mof:3:1: expected ';', found '}'");
    EXPECT_EQ(errorOf("class A { strin x; };"), "test.mof:1:11: expected a type, found 'strin'");
    EXPECT_EQ(errorOf("class A { string 1; };"),
              "test.mof:1:18: expected the name of a property or method, found '1'");
    EXPECT_EQ(errorOf("class A { }"), "test.mof:1:12: expected ';', found the end of the file");
    EXPECT_EQ(errorOf("class { };"), "test.mof:1:7: expected the name of a class, found '{'");
    EXPECT_EQ(errorOf("[Key string x;"), "test.mof:1:6: expected ']', found 'string'");
    EXPECT_EQ(errorOf("instance of A { };"),
              "test.mof:1:1: expected 'Qualifier', a class or '#pragma', found 'instance'");
    EXPECT_EQ(errorOf("[Key]\nstring x;"), "test.mof:2:1: expected 'class', found 'string'");
    EXPECT_EQ(errorOf("class A { uint8 x = ; };"), "test.mof:1:21: expected a value, found ';'");
    EXPECT_EQ(errorOf("class A { uint8 x[] = {1, null}; };"),
              "test.mof:1:27: expected a value, found 'null'");
    EXPECT_EQ(errorOf("Qualifier K : boolean, Scope(thing);"),
              "test.mof:1:30: expected the name of a scope, found 'thing'");
    EXPECT_EQ(errorOf("Qualifier K : boolean, Scope(any), Flavor(Odd);"),
              "test.mof:1:43: expected a flavor, found 'Odd'");
    EXPECT_EQ(errorOf("#include(\"x\")"), "test.mof:1:1: expected '#pragma', found '#include'");
    EXPECT_EQ(errorOf("#pragma include(x)"), "test.mof:1:17: expected a string, found 'x'");
}

class MofFiles : public ::testing::Test
{
  protected:
    MofFiles()
    {
        char name[] = "/tmp/mof-XXXXXX";
        m_directory = mkdtemp(name);
    }
    ~MofFiles() override { std::filesystem::remove_all(m_directory); }

    std::string write(const std::string& name, const std::string& text) const
    {
        std::filesystem::create_directories((m_directory / name).parent_path());
        std::ofstream(m_directory / name) << text;
        return (m_directory / name).string();
    }
    std::string path(const std::string& name) const { return (m_directory / name).string(); }

  private:
    std::filesystem::path m_directory;
};

TEST_F(MofFiles, AnIncludedFileIsLookedForBesideTheIncludingOne)
{
    write("sub/b.mof", "#pragma include(\"c.mof\")\nclass B {};");
    write("sub/c.mof", "class C {};");
    const MofDocument document =
        parseMofFile(write("a.mof", "#pragma include(\"sub/b.mof\")\nclass A : B {};"));
    ASSERT_EQ(document.size(), 3U);
    EXPECT_EQ(std::get<MofClass>(document[0]).name, "C");
    EXPECT_EQ(std::get<MofClass>(document[2]).name, "A");
    EXPECT_EQ(std::get<MofClass>(document[0]).position.file, path("sub/c.mof"));
}

TEST_F(MofFiles, AMissingIncludedFileIsAnErrorAtItsPragma)
{
    const std::string file = write("a.mof", "class A {};\n#pragma include(\"none.mof\")");
    try {
        parseMofFile(file);
        FAIL();
    } catch (const MofError& e) {
        EXPECT_EQ(e.what(), file + ":2:17: expected a readable file, found '" + path("none.mof") + "'");
    }
}

TEST_F(MofFiles, FilesThatIncludeEachOtherAreRefused)
{
    write("b.mof", "#pragma include(\"a.mof\")");
    const std::string file = write("a.mof", "#pragma include(\"b.mof\")");
    try {
        parseMofFile(file);
        FAIL();
    } catch (const MofError& e) {
        EXPECT_EQ(e.what(),
                  path("b.mof") + ":1:17: expected a file that does not include itself, found \"a.mof\"");
    }
}

} // namespace
} // namespace cimom::test
