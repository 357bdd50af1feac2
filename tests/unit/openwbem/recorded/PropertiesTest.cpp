// Properties, qualifiers, and the arguments of methods.
#include "OW_Array.hpp"
#include "Recording.hpp"
#include "Samples.hpp"
#include <gtest/gtest.h>
#include <iterator>

using namespace recorded;

namespace
{

const Excepted EXCEPTED[] = {
    {"nobody here uses them: other qualifiers' names",
     "(isAssociationQualifier|CIM_QUAL_(DESCRIPTION|PROVIDER))", 3},
    {"nobody here uses it", R"(CIMQualifier\.removeFlavor)", 1},
    {"nobody here uses them", R"(CIMProperty\.(clone|setDataSize))", 2},
};

std::vector<Named<CIMDataType>> someTypes()
{
    std::vector<Named<CIMDataType>> types = {{"default", CIMDataType()},
                                             {"null", CIMDataType(CIMNULL)},
                                             {"3[5]", CIMDataType(CIMDataType::UINT16, 5)},
                                             {"REF X", CIMDataType(CIMName("X"))}};
    for (int number = CIMDataType::CIMNULL; number < CIMDataType::MAXDATATYPE; ++number) {
        const auto type = static_cast<CIMDataType::Type>(number);
        types.push_back({std::to_string(number), CIMDataType(type)});
        types.push_back({std::to_string(number) + "[]", CIMDataType(type, -1)});
    }
    return types;
}

void checkQualifier(Recording& recording, const Named<CIMValue>& value)
{
    const CIMQualifier given = qualifier("Q", value.object);
    const std::string name = "CIMQualifier(Q=" + value.name + ")";
    recording.check(name, [&] { return given; });
    recording.check(name + ".toString()", [&] { return given.toString(); });
    recording.check(name + ".toMOF()", [&] { return given.toMOF(); });
    recording.check(name + ".hasValue()", [&] { return given.hasValue(); });
    recording.check(name + ".getValueT()", [&] { return given.getValueT(); });
    recording.check(name + " streamed", [&] { return streamed(given); });
}

void checkNullQualifier(Recording& recording)
{
    const CIMQualifier null(CIMNULL);
    recording.check("CIMQualifier(CIMNULL)", [&] { return null; });
    recording.check("CIMQualifier(CIMNULL).getName()", [&] { return null.getName(); });
    recording.check("CIMQualifier(CIMNULL).toString()", [&] { return null.toString(); });
    recording.check("CIMQualifier(CIMNULL).toMOF()", [&] { return null.toMOF(); });
    recording.check("CIMQualifier(CIMNULL).hasValue()", [&] { return null.hasValue(); });
    recording.check("CIMQualifier(CIMNULL).equals", [&] { return null.equals(CIMQualifier("x")); });
    recording.check("CIMQualifier.equals null", [&] { return CIMQualifier("x").equals(null); });
}

void checkQualifierNames(Recording& recording)
{
    recording.check("CIMQualifier()", [] { return CIMQualifier(); });
    recording.check("CIMQualifier().toString()", [] { return CIMQualifier().toString(); });
    recording.check("CIMQualifier.equals", [] { return CIMQualifier("x").equals(CIMQualifier("X")); });
    recording.check("CIMQualifier == other case", [] { return CIMQualifier("x") == CIMQualifier("X"); });
    recording.check("CIMQualifier != other case", [] { return CIMQualifier("x") != CIMQualifier("X"); });
    recording.check("CIMQualifier const == other", [] {
        const CIMQualifier a("x");
        const CIMQualifier b("y");
        return a == b;
    });
    recording.check("CIMQualifier compare", [] { return CIMQualifier("x").compare(CIMQualifier("Y")); });
    recording.check("CIMQualifier::createKeyQualifier()", [] { return CIMQualifier::createKeyQualifier(); });
    recording.check("isKeyQualifier", [] { return CIMQualifier("kEY").isKeyQualifier(); });
    recording.check("isKeyQualifier no", [] { return CIMQualifier("Keys").isKeyQualifier(); });
    recording.check("CIM_QUAL_KEY", [] { return CIMQualifier::CIM_QUAL_KEY; });
    recording.check("CIMQualifier.setName", [] {
        const CIMQualifier q("x");
        CIMQualifier r(q);
        r.setName("y");
        return shown(q) + shown(r);
    });
    recording.check("CIMQualifier.setNull", [] {
        CIMQualifier q("x");
        q.setNull();
        return q;
    });
    recording.check("CIMQualifier.setPropagated", [] {
        CIMQualifier q("x");
        q.setPropagated();
        const CIMQualifier r(q);
        q.setPropagated(false);
        return shown(q) + shown(r);
    });
}

void checkFlavors(Recording& recording)
{
    const CIMFlavor toSubclass(CIMFlavor::TOSUBCLASS);
    const CIMFlavor translate(CIMFlavor::TRANSLATE);
    recording.check("CIMQualifier flavors", [] { return CIMQualifier("x").getFlavor(); });
    recording.check("CIMQualifier.addFlavor", [&] {
        return CIMQualifier("x").addFlavor(toSubclass).addFlavor(toSubclass).getFlavor();
    });
    recording.check("CIMQualifier.addFlavor opposed", [&] {
        return CIMQualifier("x")
            .addFlavor(toSubclass)
            .addFlavor(CIMFlavor(CIMFlavor::RESTRICTED))
            .getFlavor();
    });
    recording.check("CIMQualifier.hasFlavor", [&] {
        const CIMQualifier q = CIMQualifier("x").addFlavor(translate);
        return shown(q.hasFlavor(translate)) + shown(q.hasFlavor(toSubclass));
    });
    for (int number = 0; number < 8; ++number) {
        const CIMFlavor flavor(static_cast<CIMFlavor::Flavor>(number));
        const std::string name = "CIMFlavor(" + std::to_string(number) + ")";
        recording.check(name, [&] { return flavor; });
        recording.check(name + ".toString()", [&] { return flavor.toString(); });
        recording.check(name + ".toMOF()", [&] { return flavor.toMOF(); });
        recording.check(name + " as bool", [&] { return flavor ? true : false; });
    }
}

void checkDeclarations(Recording& recording)
{
    CIMQualifierType type("T");
    recording.check("CIMQualifier(CIMQualifierType)", [&] { return CIMQualifier(type); });
    recording.check("CIMQualifier(CIMQualifierType).getFlavor()",
                    [&] { return CIMQualifier(type).getFlavor(); });
    recording.check("CIMQualifierType default before type",
                    [] { return CIMQualifierType("T").setDefaultValue(CIMValue("5")).getDefaultValue(); });
    type.setDataType(CIMDataType(CIMDataType::UINT16));
    recording.check("CIMQualifierType.toString", [&] { return type.toString(); });
    recording.check("CIMQualifierType.toMOF", [&] { return type.toMOF(); });
    type.setDefaultValue(CIMValue("5"));
    recording.check("CIMQualifierType default",
                    [&] { return shown(type.getDefaultValue()) + shown(CIMQualifier(type)); });
}

void checkValue(Recording& recording, const Named<CIMValue>& value)
{
    const auto made = [&] { return property("p", value.object); };
    const auto set = [&] { return CIMProperty("p").setValue(value.object); };
    const std::string name = "CIMProperty(p," + value.name + ")";
    recording.check(name, made);
    recording.check(name + ".toString()", [&] { return made().toString(); });
    recording.check(name + ".toMOF()", [&] { return made().toMOF(); });
    recording.check(name + ".isKey()", [&] { return made().isKey(); });
    recording.check(name + ".isReference()", [&] { return made().isReference(); });
    recording.check(name + ".getSize()", [&] { return made().getSize(); });
    recording.check(name + ".getValueT()", [&] { return made().getValueT(); });
    const std::string setter = "CIMProperty(p).setValue(" + value.name + ")";
    recording.check(setter, set);
    recording.check(setter + ".isKey()", [&] { return set().isKey(); });
    recording.check(setter + ".toString()", [&] {
        const std::string text = shown(set().toString());
        return text + shown(set().toMOF());
    });
}

void checkType(Recording& recording, const Named<CIMDataType>& type)
{
    const CIMProperty made("p", type.object);
    const std::string name = "CIMProperty(p,type " + type.name + ")";
    recording.check(name, [&] { return made; });
    recording.check(name + ".toString()", [&] { return made.toString(); });
    recording.check(name + ".toMOF()", [&] { return made.toMOF(); });
    recording.check(name + ".isKey()", [&] { return made.isKey(); });
    recording.check(name + ".isReference()", [&] { return made.isReference(); });
}

void checkCasts(Recording& recording)
{
    const std::vector<Named<CIMValue>> values = someValues();
    for (const Named<CIMValue>& value : values) {
        checkValue(recording, value);
        for (const Named<CIMValue>& before : values) {
            recording.check("CIMProperty(p," + before.name + ").setValue(" + value.name + ")",
                            [&] { return property("p", before.object).setValue(value.object); });
        }
        for (const Named<CIMDataType>& type : someTypes()) {
            recording.check("CIMProperty(p,type " + type.name + ").setValue(" + value.name + ")",
                            [&] { return CIMProperty("p", type.object).setValue(value.object); });
            recording.check("CIMProperty(p).setValue(" + value.name + ").setDataType(" + type.name + ")",
                            [&] { return CIMProperty("p").setValue(value.object).setDataType(type.object); });
        }
    }
    for (const Named<CIMDataType>& type : someTypes()) {
        checkType(recording, type);
    }
}

void checkEmptyProperties(Recording& recording)
{
    const CIMProperty null(CIMNULL);
    recording.check("CIMProperty()", [] { return CIMProperty(); });
    recording.check("CIMProperty().getSize()", [] { return CIMProperty().getSize(); });
    recording.check("CIMProperty().toString()", [] { return CIMProperty().toString(); });
    recording.check("CIMProperty().getValueT()", [] { return CIMProperty("x").getValueT(); });
    recording.check("CIMProperty(CIMNULL)", [&] { return null; });
    recording.check("CIMProperty(CIMNULL).getName()", [&] { return null.getName(); });
    recording.check("CIMProperty(CIMNULL).toString()", [&] { return null.toString(); });
    recording.check("CIMProperty(CIMNULL).isKey()", [&] { return null.isKey(); });
    recording.check("CIMProperty(CIMNULL).setName", [] {
        CIMProperty p(CIMNULL);
        p.setName("x");
        return p;
    });
    recording.check("CIMProperty(CIMNULL).setValue",
                    [] { return CIMProperty(CIMNULL).setValue(CIMValue(true)); });
}

void checkPropertyQualifiers(Recording& recording)
{
    const CIMQualifier trueQ = qualifier("Q", CIMValue(true));
    const CIMQualifier falseQ = qualifier("q", CIMValue(false));
    const CIMQualifier null(CIMNULL);
    recording.check("CIMProperty.addQualifier twice",
                    [&] { return CIMProperty("x").addQualifier(trueQ).addQualifier(falseQ); });
    recording.check("CIMProperty.addQualifier null", [&] { return CIMProperty("x").addQualifier(null); });
    recording.check("CIMProperty.addQualifier null second",
                    [&] { return CIMProperty("x").addQualifier(CIMQualifier("q")).addQualifier(null); });
    recording.check("CIMProperty.setQualifier null", [&] { return CIMProperty("x").setQualifier(null); });
    recording.check("CIMProperty.setQualifier twice", [&] {
        CIMProperty p("x");
        return p.setQualifier(trueQ).setQualifier(qualifier("R", CIMValue(true))).setQualifier(falseQ);
    });
    recording.check("CIMProperty.setQualifiers",
                    [&] { return CIMProperty("x").setQualifiers(CIMQualifierArray(2, trueQ)); });
    recording.check("CIMProperty.removeQualifier", [&] {
        CIMProperty p = CIMProperty("x").setQualifier(trueQ);
        const bool first = p.removeQualifier("q");
        const bool second = p.removeQualifier("q");
        return shown(first) + shown(second) + shown(p);
    });
    recording.check("CIMProperty.clearNonKeyQualifiers", [] {
        CIMProperty p = qualified("x", CIMValue(true), "Key");
        return p.addQualifier(qualifier("R", CIMValue(1))).clearNonKeyQualifiers();
    });
    recording.check("CIMProperty.clearQualifiers", [] {
        const CIMProperty p = qualified("x", CIMValue(true), "Key").clearQualifiers();
        return shown(p) + shown(p.isKey());
    });
    recording.check("CIMProperty.getQualifier absent", [] { return CIMProperty("x").getQualifier("q"); });
    recording.check("CIMProperty.getQualifierT absent", [] { return CIMProperty("x").getQualifierT("q"); });
    recording.check("CIMProperty.hasTrueQualifier", [] {
        const CIMProperty p = qualified("x", CIMValue(1), "Invisible");
        return shown(p.hasTrueQualifier("invisible")) + shown(p.hasTrueQualifier("x"));
    });
}

void checkKeys(Recording& recording)
{
    const auto isKeyWith = [](const CIMQualifier& key) { return CIMProperty("x").addQualifier(key).isKey(); };
    recording.check("CIMProperty key: other case",
                    [] { return qualified("x", CIMValue(true), "kEy").isKey(); });
    recording.check("CIMProperty key: false", [&] { return isKeyWith(qualifier("Key", CIMValue(false))); });
    recording.check("CIMProperty key: string", [&] { return isKeyWith(qualifier("Key", CIMValue("true"))); });
    recording.check("CIMProperty key: none", [&] { return isKeyWith(CIMQualifier("Key")); });
    recording.check("CIMProperty key: array",
                    [&] { return isKeyWith(qualifier("Key", CIMValue(BoolArray(1, Bool(true))))); });
}

void checkPropertyComparisons(Recording& recording)
{
    const CIMProperty x("x");
    const CIMProperty y("y");
    recording.check("CIMProperty == by name", [] {
        CIMProperty a = property("x", CIMValue(1));
        CIMProperty b = property("X", CIMValue(2));
        return shown(a == b) + shown(a != b) + shown(a.equals(b)) + shown(a.compare(b));
    });
    recording.check("CIMProperty const ==", [&] { return x == y; });
    recording.check("CIMProperty const == null", [&] {
        const CIMProperty null(CIMNULL);
        return x == null;
    });
    recording.check("CIMProperty <", [&] { return shown(x < y) + shown(y < x); });
    recording.check("CIMProperty copies", [] {
        const CIMProperty a = property("x", CIMValue(1));
        CIMProperty b(a);
        b.setName("y");
        b.setValue(CIMValue(2)).setPropagated().setOriginClass("O");
        return shown(a) + shown(b);
    });
    recording.check("CIMProperty streamed", [] { return streamed(property("x", CIMValue(1))); });
}

void checkArguments(Recording& recording)
{
    const CIMParamValue null(CIMNULL);
    const CIMParamValue one("x", CIMValue(1));
    recording.check("CIMParamValue()", [] { return CIMParamValue(); });
    recording.check("CIMParamValue().toString()", [] { return CIMParamValue().toString(); });
    recording.check("CIMParamValue(CIMNULL)", [&] { return null; });
    recording.check("CIMParamValue(CIMNULL).toMOF()", [&] { return null.toMOF(); });
    recording.check("CIMParamValue(CIMNULL).toString()", [&] { return null.toString(); });
    recording.check("CIMParamValue(CIMNULL).getName()", [&] { return null.getName(); });
    recording.check("CIMParamValue(x).toString()", [] { return CIMParamValue("x").toString(); });
    recording.check("CIMParamValue(x,1).toString()", [&] { return one.toString(); });
    recording.check("CIMParamValue(x,1).toMOF()", [&] { return one.toMOF(); });
    recording.check("CIMParamValue(x,1) streamed", [&] { return streamed(one); });
    recording.check("CIMParamValue.setName", [&] {
        CIMParamValue b(one);
        b.setName("y").setValue(CIMValue("z"));
        return shown(one) + shown(b);
    });
    const CIMParamValue x("x");
    const CIMParamValue y("y");
    recording.check("CIMParamValue const ==", [&] { return x == y; });
    recording.check("CIMParamValue <", [&] { return x < y; });
    recording.check("CIMParamValue.setNull", [] {
        CIMParamValue a("x");
        a.setNull();
        return a;
    });
}

TEST(RecordedProperties, answerAsTheOriginal)
{
    Recording recording("properties", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    for (const Named<CIMValue>& value : someValues()) {
        checkQualifier(recording, value);
    }
    checkNullQualifier(recording);
    checkQualifierNames(recording);
    checkFlavors(recording);
    checkDeclarations(recording);
    checkCasts(recording);
    checkEmptyProperties(recording);
    checkPropertyQualifiers(recording);
    checkKeys(recording);
    checkPropertyComparisons(recording);
    checkArguments(recording);
    recording.expectComplete(2495);
}

} // namespace
