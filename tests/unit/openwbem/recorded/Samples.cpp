#include "Samples.hpp"
#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_Char16.hpp"

namespace recorded
{

std::vector<Named<CIMValue>> someValues()
{
    return {
        {"null", CIMValue(CIMNULL)},
        {"true", CIMValue(true)},
        {"uint8 5", CIMValue(UInt8(5))},
        {"uint16 5", CIMValue(UInt16(5))},
        {"sint32 -5", CIMValue(Int32(-5))},
        {"sint64 70000", CIMValue(Int64(70000))},
        {"real64 2.5", CIMValue(Real64(2.5))},
        {"char16 A", CIMValue(Char16(UInt16('A')))},
        {"\"\"", CIMValue("")},
        {"\"5\"", CIMValue("5")},
        {"\"abc\"", CIMValue("abc")},
        {"\"true\"", CIMValue("true")},
        {"datetime", CIMValue(CIMDateTime("20040102030405.123456+060"))},
        {"path", CIMValue(CIMObjectPath("C", "ns"))},
        {"instance", CIMValue(CIMInstance("I"))},
        {"class", CIMValue(CIMClass("K"))},
        {"uint16[0]", CIMValue(UInt16Array())},
        {"uint16[2]", CIMValue(UInt16Array(2, UInt16(9)))},
        {"string[2]", CIMValue(StringArray(2, String("7")))},
    };
}

CIMQualifier qualifier(const char* name, const CIMValue& value)
{
    return CIMQualifier(name).setValue(value);
}

CIMProperty property(const char* name, const CIMValue& value)
{
    return CIMProperty(CIMName(name), value);
}

CIMProperty qualified(const char* name, const CIMValue& value, const char* qualifierName)
{
    return property(name, value).addQualifier(qualifier(qualifierName, CIMValue(true)));
}

CIMClass sampleClass()
{
    CIMProperty name("Name", CIMDataType(CIMDataType::STRING));
    name.addQualifier(CIMQualifier::createKeyQualifier())
        .addQualifier(qualifier("MaxLen", CIMValue(UInt32(64))));
    name.setOriginClass("Base").setPropagated();
    CIMProperty id("Id", CIMDataType(CIMDataType::UINT16));
    id.addQualifier(CIMQualifier::createKeyQualifier()).setOriginClass("TheClass");
    CIMProperty size = property("Size", CIMValue(Int32(7)));
    size.addQualifier(qualifier("Units", CIMValue("Bytes"))).setOriginClass("TheClass");

    CIMClass cimClass("TheClass");
    cimClass.setSuperClass("Base");
    cimClass.addQualifier(qualifier("Description", CIMValue("about \"it\"")));
    cimClass.addQualifier(qualifier("Association", CIMValue(true)));
    cimClass.addProperty(name).addProperty(id).addProperty(size);
    cimClass.addProperty(CIMProperty("Enabled", CIMDataType(CIMDataType::BOOLEAN)));
    cimClass.addProperty(CIMProperty("Stamp", CIMDataType(CIMDataType::DATETIME)));
    cimClass.addProperty(CIMProperty("List", CIMDataType(CIMDataType::UINT16, -1)));
    cimClass.addProperty(CIMProperty("Five", CIMDataType(CIMDataType::UINT16, 5)));
    cimClass.addProperty(qualified("Hidden", CIMValue("h"), "Invisible"));
    return cimClass;
}

CIMClass linkingClass()
{
    CIMClass cimClass("Link");
    cimClass.addProperty(CIMProperty("Left", CIMDataType(CIMName("TheClass"))));
    cimClass.addProperty(CIMProperty("Right", CIMDataType(CIMDataType::REFERENCE)));
    cimClass.addProperty(CIMProperty("Note", CIMDataType(CIMDataType::STRING)));
    return cimClass;
}

std::vector<Named<CIMClass>> someClasses()
{
    return {{"TheClass", sampleClass()},
            {"Link", linkingClass()},
            {"plain", CIMClass("plain")},
            {"null", CIMClass(CIMNULL)}};
}

} // namespace recorded
