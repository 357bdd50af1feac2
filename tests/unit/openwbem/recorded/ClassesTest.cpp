// CIMClass, CIMMethod and CIMParameter.
#include "OW_Array.hpp"
#include "Recording.hpp"
#include "Samples.hpp"
#include <gtest/gtest.h>
#include <iterator>

using namespace recorded;

namespace
{

const Excepted EXCEPTED[] = {
    {"nobody here uses them",
     R"(CIMClass\.(getProperty origin.*|getProperties|isAssociation.*|isKeyed.*|getKeyClass|numberOf.*|setQualifier twice|remove.*|hasQualifier|clone|setMethod|getMethods))",
     17},
};

void checkEmpty(Recording& recording)
{
    const CIMClass null(CIMNULL);
    recording.check("CIMClass()", [] { return CIMClass(); });
    recording.check("CIMClass().getName()", [] { return CIMClass().getName(); });
    recording.check("CIMClass(CIMNULL)", [&] { return null; });
    recording.check("CIMClass(CIMNULL).getName()", [&] { return null.getName(); });
    recording.check("CIMClass(CIMNULL).getProperty", [&] { return null.getProperty("x"); });
    recording.check("CIMClass(CIMNULL).newInstance", [&] { return null.newInstance(); });
    recording.check("CIMClass(CIMNULL).toString()", [&] { return null.toString(); });
}

void checkGetters(Recording& recording)
{
    const CIMClass given = sampleClass();
    recording.check("CIMClass", [&] { return given; });
    recording.check("CIMClass.toString()", [&] { return given.toString(); });
    recording.check("CIMClass.toMOF()", [&] { return given.toMOF(); });
    recording.check("CIMClass.toString() link", [] { return linkingClass().toString(); });
    recording.check("CIMClass.toString() plain", [] { return CIMClass("x").toString(); });
    recording.check("CIMClass streamed", [] { return streamed(CIMClass("x")); });
    recording.check("CIMClass.getKeys()", [&] { return given.getKeys(); });
    recording.check("CIMClass.getKeys() link", [] { return linkingClass().getKeys(); });
    recording.check("CIMClass.getProperty", [&] { return given.getProperty("nAME"); });
    recording.check("CIMClass.getProperty absent", [&] { return given.getProperty("zz"); });
    recording.check("CIMClass.getAllProperties", [&] { return given.getAllProperties(); });
    recording.check("CIMClass.getQualifier", [&] { return given.getQualifier("description"); });
    recording.check("CIMClass.getQualifier absent", [&] { return given.getQualifier("zz"); });
    recording.check("CIMClass.getQualifiers", [&] { return given.getQualifiers(); });
    recording.check("CIMClass.getMethod absent", [&] { return given.getMethod("zz"); });
}

void checkSetters(Recording& recording)
{
    const CIMProperty null(CIMNULL);
    recording.check("CIMClass.addProperty twice",
                    [] { return CIMClass("x").addProperty(CIMProperty("a")).addProperty(CIMProperty("A")); });
    recording.check("CIMClass.addProperty null", [&] { return CIMClass("x").addProperty(null); });
    recording.check("CIMClass.setProperty twice", [] {
        CIMClass x = CIMClass("x").setProperty(CIMProperty("a")).setProperty(CIMProperty("b"));
        return x.setProperty(property("A", CIMValue(1)));
    });
    recording.check("CIMClass.setProperty null", [&] { return CIMClass("x").setProperty(null); });
    recording.check("CIMClass.setProperties",
                    [] { return CIMClass("x").setProperties(CIMPropertyArray(2, CIMProperty("a"))); });
    recording.check("CIMClass.addQualifier twice", [] {
        CIMClass x("x");
        x.addQualifier(qualifier("Q", CIMValue(1))).addQualifier(qualifier("R", CIMValue(2)));
        return x.addQualifier(qualifier("q", CIMValue(3)));
    });
    recording.check("CIMClass.addQualifier null",
                    [] { return CIMClass("x").addQualifier(CIMQualifier(CIMNULL)); });
    recording.check("CIMClass.setName", [] {
        const CIMClass x("x");
        CIMClass y(x);
        y.setName("y");
        return shown(x) + shown(y);
    });
}

void checkComparisons(Recording& recording)
{
    const CIMClass a("x");
    recording.check("CIMClass ==", [&] {
        const CIMClass b("X");
        const CIMClass d("y");
        return shown(a == b) + shown(a == d) + shown(a != d) + shown(a < d);
    });
    recording.check("CIMClass == properties", [&] {
        const CIMClass b = CIMClass("X").addProperty(CIMProperty("p"));
        return a == b;
    });
    recording.check("CIMClass == null", [&] {
        const CIMClass null(CIMNULL);
        return a == null;
    });
}

void checkMethods(Recording& recording)
{
    const CIMParameter in = CIMParameter("In").setDataType(CIMDataType(CIMDataType::STRING));
    CIMParameter out("Out");
    out.setDataType(CIMDataType(CIMDataType::UINT16, -1));
    out.setQualifiers(CIMQualifierArray(1, qualifier("Out", CIMValue(true))));
    CIMMethod method("Do");
    method.setReturnType(CIMDataType(CIMDataType::UINT32)).addParameter(in).addParameter(out);
    method.addQualifier(qualifier("Description", CIMValue("d")));
    recording.check("CIMMethod()", [] { return CIMMethod(); });
    recording.check("CIMMethod(CIMNULL).getName()", [] { return CIMMethod(CIMNULL).getName(); });
    recording.check("CIMMethod.toString()", [&] { return method.toString(); });
    recording.check("CIMMethod.toMOF()", [&] { return method.toMOF(); });
    recording.check("CIMMethod.getParameters()", [&] { return method.getParameters(); });
    recording.check("CIMMethod.getINParameters()", [&] { return method.getINParameters(); });
    recording.check("CIMMethod.getOUTParameters()", [&] { return method.getOUTParameters(); });
    recording.check("CIMMethod.getReturnType()", [&] { return method.getReturnType(); });
    recording.check("CIMMethod.getQualifier", [&] { return method.getQualifier("description"); });
    recording.check("CIMMethod.addQualifier twice", [] {
        CIMMethod x("x");
        return x.addQualifier(CIMQualifier("q")).addQualifier(CIMQualifier("Q")).getQualifiers();
    });
    recording.check("CIMParameter.toString()", [&] { return out.toString(); });
    recording.check("CIMParameter.toMOF()", [&] { return out.toMOF(); });
    recording.check("CIMParameter.toMOF() in", [&] { return in.toMOF(); });
    recording.check("CIMParameter.getType()", [&] { return out.getType(); });
    recording.check("CIMParameter.getQualifier", [&] { return out.getQualifier("out"); });
    recording.check("CIMClass.addMethod", [&] {
        const CIMClass x = CIMClass("x").addMethod(method);
        return shown(x.getMethod("dO")) + shown(x.getAllMethods()) + shown(x.toMOF());
    });
    recording.check("CIMClass.addMethod twice",
                    [&] { return CIMClass("x").addMethod(method).addMethod(method).getAllMethods(); });
}

TEST(RecordedClasses, answerAsTheOriginal)
{
    Recording recording("classes", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    checkEmpty(recording);
    checkGetters(recording);
    checkSetters(recording);
    checkComparisons(recording);
    checkMethods(recording);
    recording.expectComplete(50);
}

} // namespace
