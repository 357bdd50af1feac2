// CIMInstance: properties and keys, and what lists and classes make of them.
#include "OW_Array.hpp"
#include "Recording.hpp"
#include "Samples.hpp"
#include <gtest/gtest.h>
#include <iterator>

using namespace recorded;
using namespace OpenWBEM::WBEMFlags;

namespace
{

const Excepted EXCEPTED[] = {
    {"nobody here uses it: the copy of which two classes decide",
     R"(CIMInstance\.clone (deep|shallow)\(.*\))", 64},
};

CIMInstance one(const char* name, const CIMValue& value)
{
    return CIMInstance("C").setProperty(name, value);
}

CIMInstance keyed(const char* value)
{
    return CIMInstance("C").setProperty(qualified("n", CIMValue(value), "Key"));
}

void checkEmpty(Recording& recording)
{
    const CIMInstance null(CIMNULL);
    recording.check("CIMInstance()", [] { return CIMInstance(); });
    recording.check("CIMInstance(\"\")", [] { return CIMInstance(""); });
    recording.check("CIMInstance().toString()", [] { return CIMInstance().toString(); });
    recording.check("CIMInstance().toMOF()", [] { return CIMInstance().toMOF(); });
    recording.check("CIMInstance(CIMNULL)", [&] { return null; });
    recording.check("CIMInstance(CIMNULL).getClassName()", [&] { return null.getClassName(); });
    recording.check("CIMInstance(CIMNULL).toString()", [&] { return null.toString(); });
    recording.check("CIMInstance(CIMNULL).getProperties()", [&] { return null.getProperties(); });
    recording.check("CIMInstance(CIMNULL).getProperty", [&] { return null.getProperty("x"); });
    recording.check("CIMInstance(CIMNULL).setProperty",
                    [] { return CIMInstance(CIMNULL).setProperty("x", CIMValue(1)); });
    recording.check("CIMInstance(CIMNULL).setProperty(null)",
                    [] { return CIMInstance(CIMNULL).setProperty(CIMProperty(CIMNULL)); });
    recording.check("CIMInstance(CIMNULL).setClassName",
                    [] { return CIMInstance(CIMNULL).setClassName("x"); });
}

void checkValue(Recording& recording, const Named<CIMValue>& value)
{
    const CIMValue& v = value.object;
    const std::string setter = "CIMInstance.setProperty(n," + value.name + ")";
    recording.check(setter, [&] { return one("n", v); });
    recording.check(setter + ".toString()", [&] {
        const CIMInstance x = one("n", v);
        const std::string text = shown(x.toString());
        return text + shown(x.toMOF());
    });
    recording.check("CIMInstance.getPropertyValue after " + value.name, [&] {
        const CIMInstance x = one("n", v);
        return shown(x.getPropertyValue("N")) + shown(x.propertyHasValue("N")) +
               shown(x.getProperty("N").getDataType());
    });
    recording.check("CIMInstance.setProperty key present," + value.name,
                    [&] { return keyed("old").setProperty("N", v); });
    recording.check("CIMInstance.updatePropertyValue(n," + value.name + ")",
                    [&] { return keyed("old").updatePropertyValue("N", v); });
    recording.check("CIMInstance.updatePropertyValue absent(n," + value.name + ")",
                    [&] { return CIMInstance("C").updatePropertyValue("N", v); });
    for (const Named<CIMValue>& next : someValues()) {
        recording.check("CIMInstance n=" + value.name + " then n=" + next.name,
                        [&] { return one("n", v).setProperty("N", next.object); });
    }
}

void checkWholeProperties(Recording& recording)
{
    recording.check("CIMInstance.setProperty(CIMProperty) replaces", [] {
        CIMInstance x = one("a", CIMValue(1)).setProperty("b", CIMValue(2));
        return x.setProperty(qualified("A", CIMValue("new"), "Key"));
    });
    recording.check("CIMInstance.setProperty(CIMProperty) unkeys", [] {
        CIMInstance x("C");
        return x.setProperty(qualified("a", CIMValue(1), "Key")).setProperty(property("A", CIMValue("new")));
    });
    recording.check("CIMInstance.setProperty(null CIMProperty)",
                    [] { return CIMInstance("C").setProperty(CIMProperty(CIMNULL)); });
    recording.check("CIMInstance.setProperties", [] {
        CIMPropertyArray properties;
        properties.push_back(qualified("k", CIMValue(1), "Key"));
        properties.push_back(property("k", CIMValue(2)));
        properties.push_back(qualified("l", CIMValue("z"), "Key"));
        return CIMInstance("C").setProperties(properties);
    });
    recording.check("CIMInstance.removeProperty", [] {
        CIMInstance x("C");
        x.setProperty(qualified("a", CIMValue(1), "Key")).setProperty("b", CIMValue(2));
        return x.removeProperty("A").removeProperty("zz");
    });
    recording.check("CIMInstance.updatePropertyValue(CIMProperty)", [] {
        CIMInstance x("C");
        return x.setProperty(qualified("a", CIMValue(1), "Key"))
            .updatePropertyValue(property("A", CIMValue("7")));
    });
    recording.check("CIMInstance.updatePropertyValue(null)",
                    [] { return CIMInstance("C").updatePropertyValue(CIMProperty(CIMNULL)); });
    recording.check("CIMInstance.updatePropertyValue keyed arg", [] {
        CIMInstance x = one("a", CIMValue(1)).setKeys(CIMPropertyArray(1, property("z", CIMValue(9))));
        return x.updatePropertyValue(qualified("A", CIMValue(3), "Key"));
    });
    recording.check("CIMInstance.updatePropertyValues", [] {
        CIMPropertyArray properties;
        properties.push_back(property("A", CIMValue(5)));
        properties.push_back(property("b", CIMValue(5)));
        return one("a", CIMValue(1)).updatePropertyValues(properties);
    });
}

void checkKeys(Recording& recording)
{
    const CIMValue reference(CIMObjectPath("D"));
    const CIMPropertyArray keys(1, qualified("k", CIMValue(1), "Key"));
    recording.check("CIMInstance.setProperty reference by name",
                    [&] { return one("r", reference).setProperty("s", CIMValue(1)); });
    recording.check("CIMInstance.setProperty reference by name twice",
                    [&] { return one("r", reference).setProperty("r", CIMValue(CIMObjectPath("E"))); });
    recording.check("CIMInstance.setProperty reference whole",
                    [&] { return CIMInstance("C").setProperty(property("r", reference)); });
    recording.check("CIMInstance.setProperty reference then key",
                    [&] { return one("r", reference).setProperty(qualified("k", CIMValue(1), "Key")); });
    recording.check("CIMInstance.setKeys", [&] { return one("a", CIMValue(1)).setKeys(keys); });
    recording.check("CIMInstance.setKeys then key property", [&] {
        CIMInstance x = CIMInstance("C").setKeys(keys).setProperty("a", CIMValue(1));
        const std::string before = shown(x);
        return before + shown(x.setProperty(qualified("b", CIMValue(1), "Key")));
    });
}

void checkGetters(Recording& recording)
{
    recording.check("CIMInstance.getProperties(type)", [] {
        CIMInstance x = one("a", CIMValue(1)).setProperty("b", CIMValue("s"));
        return x.setProperty("c", CIMValue(Int32Array(1, 4))).getProperties(CIMDataType::SINT32);
    });
    recording.check("CIMInstance.getProperty(name, origin)", [] {
        const CIMInstance x = CIMInstance("C").setProperty(CIMProperty("a").setOriginClass("O"));
        return shown(x.getProperty("A", "o")) + shown(x.getProperty("A", "x")) +
               shown(x.getProperty("A", ""));
    });
    recording.check("CIMInstance.getPropertyT absent", [] { return CIMInstance("C").getPropertyT("Zz"); });
    recording.check("CIMInstance.getProperty absent", [] { return CIMInstance("C").getProperty("Zz"); });
    recording.check("CIMInstance.getPropertyValue absent", [] {
        const CIMInstance x("C");
        return shown(x.getPropertyValue("Zz")) + shown(x.propertyHasValue("Zz"));
    });
    recording.check("CIMInstance.setClassName", [] {
        const CIMInstance x("C");
        const CIMInstance y = CIMInstance(x).setClassName("D");
        return shown(x) + shown(y) + shown(y.getName());
    });
    recording.check("CIMInstance.setName", [] {
        CIMInstance x("C");
        x.setName("D");
        return x.getClassName();
    });
    recording.check("CIMInstance.setLanguage", [] {
        CIMInstance x("C");
        x.setLanguage("en");
        return shown(x.getLanguage()) + shown(CIMInstance("C").getLanguage());
    });
}

void checkQualifiersAndTexts(Recording& recording)
{
    const CIMQualifier given = qualifier("Q", CIMValue(1));
    recording.check("CIMInstance.setQualifier", [&] {
        CIMInstance x = CIMInstance("C").setQualifier(given).setQualifier(qualifier("q", CIMValue(2)));
        x.setQualifier(CIMQualifier(CIMNULL));
        return shown(x) + shown(x.getQualifier("Q")) + shown(x.getQualifier("zz"));
    });
    recording.check("CIMInstance.removeQualifier", [&] {
        return CIMInstance("C").setQualifier(given).removeQualifier("q").removeQualifier("q");
    });
    CIMInstance full = CIMInstance("C").setQualifier(given);
    full.setProperty(qualified("a", CIMValue("x\"y\nz"), "Key"));
    full.setProperty(qualified("h", CIMValue(1), "Invisible"));
    full.setProperty("n", CIMValue(CIMNULL));
    full.setProperty("l", CIMValue(StringArray(2, String("q\""))));
    recording.check("CIMInstance.toString full", [&] { return full.toString(); });
    full.setQualifier(qualifier("R", CIMValue("s")));
    recording.check("CIMInstance.toMOF full", [&] { return full.toMOF(); });
    recording.check("CIMInstance streamed", [] { return streamed(one("a", CIMValue(1))); });
}

void checkComparisons(Recording& recording)
{
    recording.check("CIMInstance == by name", [] {
        CIMInstance a("C");
        const CIMInstance b = CIMInstance("c").setProperty("x", CIMValue(1));
        return shown(a == b) + shown(a.equals(b));
    });
    const CIMInstance c("C");
    const CIMInstance d("D");
    recording.check("CIMInstance const ==", [&] { return c == d; });
    recording.check("CIMInstance <", [&] { return c < d; });

    const auto two = [](const CIMProperty& first, const CIMProperty& second) {
        return CIMInstance("D").setProperty(first).setProperty(second);
    };
    const CIMProperty x = property("x", CIMValue(1));
    const CIMProperty y = property("y", CIMValue("s"));
    const CIMInstance others[] = {
        two(property("Y", CIMValue("s")), property("X", CIMValue(1))),
        two(property("x", CIMValue(2)), y),
        CIMInstance("D").setProperty(x),
        two(property("x", CIMValue(UInt16(1))), y),
        two(x, property("z", CIMValue("s"))),
        two(qualified("x", CIMValue(1), "Key"), y),
    };
    const CIMInstance first = two(x, y).setClassName("C");
    for (size_t i = 0; i < std::size(others); ++i) {
        recording.check("CIMInstance.propertiesAreEqualTo " + std::to_string(i),
                        [&] { return first.propertiesAreEqualTo(others[i]); });
    }
}

// Of TheClass, with an inherited key and a property of its own.
CIMInstance fullInstance()
{
    CIMInstance full("TheClass");
    full.setQualifier(qualifier("Own", CIMValue(1)));
    full.setProperty(qualified("Name", CIMValue("n"), "Key").setOriginClass("O").setPropagated());
    full.setProperty(qualified("Size", CIMValue(3), "Foo").setOriginClass("TheClass"));
    full.setLanguage("de");
    return full;
}

// None, an empty one, and two more.
class PropertyLists
{
  public:
    PropertyLists() : m_one(1, String("sIZE"))
    {
        m_two.push_back("zz");
        m_two.push_back("NAME");
        m_two.push_back("size");
    }

    const StringArray* operator[](int number) const
    {
        const StringArray* const lists[] = {nullptr, &m_empty, &m_one, &m_two};
        return lists[number];
    }

  private:
    StringArray m_empty;
    StringArray m_one;
    StringArray m_two;
};

const int LISTS = 4;

void checkCopies(Recording& recording, ELocalOnlyFlag local, EIncludeQualifiersFlag qualifiers,
                 EIncludeClassOriginFlag origin)
{
    const CIMInstance full = fullInstance();
    const PropertyLists lists;
    for (int number = 0; number < LISTS; ++number) {
        const StringArray* const list = lists[number];
        const std::string arguments =
            "(" + shown(local) + shown(qualifiers) + shown(origin) + std::to_string(number) + ")";
        recording.check("CIMInstance.clone" + arguments,
                        [&] { return full.clone(local, qualifiers, origin, list); });
        recording.check("CIMInstance.clone" + arguments + ".getLanguage()",
                        [&] { return full.clone(local, qualifiers, origin, list).getLanguage(); });
        if (!list) {
            continue;
        }
        recording.check("CIMInstance.filterProperties" + arguments,
                        [&] { return full.filterProperties(*list, qualifiers, origin); });
        recording.check("CIMInstance.filterProperties ignoring" + arguments,
                        [&] { return full.filterProperties(*list, qualifiers, origin, true); });
        recording.check("CIMInstance.clone StringArray" + arguments,
                        [&] { return full.clone(local, qualifiers, origin, *list); });
    }
}

void checkAllCopies(Recording& recording)
{
    for (const ELocalOnlyFlag local : {E_NOT_LOCAL_ONLY, E_LOCAL_ONLY}) {
        for (const EIncludeQualifiersFlag qualifiers : {E_EXCLUDE_QUALIFIERS, E_INCLUDE_QUALIFIERS}) {
            for (const EIncludeClassOriginFlag origin : {E_EXCLUDE_CLASS_ORIGIN, E_INCLUDE_CLASS_ORIGIN}) {
                checkCopies(recording, local, qualifiers, origin);
            }
        }
    }
}

std::vector<Named<CIMInstance>> instancesToFit()
{
    CIMInstance mixed("THECLASS");
    mixed.setProperty("stamp", CIMValue("20040102030405.123456+060")).setProperty("zz", CIMValue(1));
    mixed.setProperty("ID", CIMValue("17"))
        .setProperty("NAME", CIMValue(5))
        .setProperty("list", CIMValue("4"));
    mixed.setProperty("five", CIMValue(UInt16Array(2, UInt16(1))));
    CIMInstance nulls("TheClass");
    nulls.setProperty("Size", CIMValue(CIMNULL)).setProperty("Name", CIMValue(CIMNULL));
    const auto with = [](const char* name, const CIMValue& value) {
        return CIMInstance("TheClass").setProperty(name, value);
    };
    return {
        {"empty", CIMInstance("theclass")},
        {"full", fullInstance()},
        {"mixed", mixed},
        {"bad", with("Id", CIMValue("abc"))},
        {"nulls", nulls},
        {"embedded", with("Name", CIMValue(CIMInstance("E")))},
        {"boolean", with("Enabled", CIMValue(UInt16(1)))},
    };
}

void checkModified(Recording& recording, const Named<CIMInstance>& given, const Named<CIMClass>& cimClass)
{
    const PropertyLists lists;
    for (const Named<CIMInstance>& previous : instancesToFit()) {
        for (int number = 0; number < LISTS; ++number) {
            for (const EIncludeQualifiersFlag qualifiers : {E_EXCLUDE_QUALIFIERS, E_INCLUDE_QUALIFIERS}) {
                const std::string call = "CIMInstance.createModifiedInstance " + given.name + " with " +
                                         cimClass.name + " previous " + previous.name + " list " +
                                         std::to_string(number) + " quals " + shown(qualifiers);
                recording.check(call, [&] {
                    return given.object.createModifiedInstance(previous.object, qualifiers, lists[number],
                                                               cimClass.object);
                });
            }
        }
    }
}

void checkFitting(Recording& recording)
{
    for (const Named<CIMClass>& cimClass : someClasses()) {
        const CIMClass& c = cimClass.object;
        for (const Named<CIMInstance>& given : instancesToFit()) {
            const std::string operands = " " + given.name + " with " + cimClass.name;
            recording.check("CIMInstance.syncWithClass" + operands,
                            [&] { return CIMInstance(given.object).syncWithClass(c); });
            recording.check("CIMInstance.syncWithClass exclude" + operands,
                            [&] { return CIMInstance(given.object).syncWithClass(c, E_EXCLUDE_QUALIFIERS); });
            checkModified(recording, given, cimClass);
        }
        recording.check("CIMClass.newInstance " + cimClass.name, [&] { return c.newInstance(); });
        recording.check("CIMClass.newInstance.toString " + cimClass.name,
                        [&] { return c.newInstance().toString(); });
    }
    recording.check("CIMInstance.syncWithClass reference", [] {
        CIMInstance i("Link");
        i.setProperty("left", CIMValue("ns:C.k=\"v\"")).setProperty("Right", CIMValue(CIMObjectPath("D")));
        return i.setProperty("NOTE", CIMValue(5)).syncWithClass(linkingClass());
    });
    recording.check("CIMInstance.syncWithClass bad reference", [] {
        return CIMInstance("Link").setProperty("left", CIMValue("nonsense")).syncWithClass(linkingClass());
    });
}

TEST(RecordedInstances, answerAsTheOriginal)
{
    Recording recording("instances", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    checkEmpty(recording);
    for (const Named<CIMValue>& value : someValues()) {
        checkValue(recording, value);
    }
    checkWholeProperties(recording);
    checkKeys(recording);
    checkGetters(recording);
    checkQualifiersAndTexts(recording);
    checkComparisons(recording);
    checkAllCopies(recording);
    checkFitting(recording);
    recording.expectComplete(2294);
}

} // namespace
