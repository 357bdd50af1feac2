// CIMObjectPath: from and to texts, keys, comparisons, and the fitting to a class.
#include "OW_Array.hpp"
#include "Recording.hpp"
#include "Samples.hpp"
#include <gtest/gtest.h>

using namespace recorded;

namespace
{

void checkParsing(Recording& recording, const std::string& text)
{
    const auto parsed = [&] { return CIMObjectPath::parse(text.c_str()); };
    const std::string call = "CIMObjectPath::parse(" + quoted(text) + ")";
    recording.check(call, parsed);
    recording.check(call + " back", [&] { return CIMObjectPath::parse(parsed().toString()); });
    recording.check(call + ".toString()", [&] { return parsed().toString(); });
}

void checkEscaping(Recording& recording, const std::string& text)
{
    const String plain(text.c_str());
    recording.check("CIMObjectPath::escape(" + quoted(text) + ")",
                    [&] { return CIMObjectPath::escape(plain); });
    recording.check("CIMObjectPath::unEscape(" + quoted(text) + ")",
                    [&] { return CIMObjectPath::unEscape(plain); });
    recording.check("CIMObjectPath::unEscape(escape(" + quoted(text) + "))",
                    [&] { return CIMObjectPath::unEscape(CIMObjectPath::escape(plain)); });
}

CIMPropertyArray someKeys()
{
    CIMPropertyArray keys;
    keys.push_back(qualified("b", CIMValue(UInt16(5)), "Key"));
    keys.push_back(property("a", CIMValue("x\"y\\z\nw")));
    keys.push_back(CIMProperty("n", CIMDataType(CIMDataType::STRING)));
    keys.push_back(property("t", CIMValue(true)));
    keys.push_back(property("r", CIMValue(CIMObjectPath("D", "ns2"))));
    keys.push_back(property("d", CIMValue(CIMDateTime("20040102030405.123456+060"))));
    return keys;
}

CIMInstance someInstance()
{
    return CIMInstance("I").setProperty(qualified("k", CIMValue(1), "Key")).setProperty("l", CIMValue(2));
}

std::vector<Named<CIMObjectPath>> somePaths()
{
    std::vector<Named<CIMObjectPath>> paths;
    for (const char* const text :
         {"C.k=\"v\"", "c.K=\"v\"", "C.k=\"V\"", "C.k=\"v\",l=\"w\"", "C.l=\"w\",k=\"v\"", "ns:C.k=\"v\"",
          "NS:C.k=\"v\"", "/ns:C.k=\"v\"", "http://host/ns:C.k=\"v\"", "http://host:5989/ns:C.k=\"v\"",
          "http://localhost/ns:C.k=\"v\""}) {
        paths.push_back({"parse(" + quoted(text) + ")", CIMObjectPath::parse(text)});
    }
    paths.push_back({"()", CIMObjectPath()});
    paths.push_back({"(null)", CIMObjectPath(CIMNULL)});
    paths.push_back({"(C)", CIMObjectPath("C")});
    paths.push_back({"(C,ns)", CIMObjectPath("C", "ns")});
    paths.push_back({"(c,NS)", CIMObjectPath("c", "NS")});
    paths.push_back({"(C,\"\")", CIMObjectPath("C", "")});
    paths.push_back({"(C,//ns/ )", CIMObjectPath("C", " //ns/ ")});
    paths.push_back({"(C,keys)", CIMObjectPath("C", someKeys())});
    paths.push_back({"(ns,instance)", CIMObjectPath(String("ns"), someInstance())});
    for (const char* const host : {"", "localhost", "127.0.0.1", "LOCALHOST", "::1", "host", "host:5989",
                                   "http://host", "https://host:77", "1.2.3.4", "host/path", "user@host"}) {
        paths.push_back({std::string("host ") + host, CIMObjectPath("C", "ns").setHost(host)});
    }
    return paths;
}

void checkGetters(Recording& recording, const std::string& name, const CIMObjectPath& path)
{
    recording.check(name, [&] { return path; });
    recording.check(name + ".toString()", [&] { return path.toString(); });
    recording.check(name + ".modelPath()", [&] { return path.modelPath(); });
    recording.check(name + ".toMOF()", [&] { return path.toMOF(); });
    recording.check(name + " streamed", [&] { return streamed(path); });
    recording.check(name + ".getHost()", [&] { return path.getHost(); });
    recording.check(name + ".getNameSpace()", [&] { return path.getNameSpace(); });
    recording.check(name + ".getClassName()", [&] { return path.getClassName(); });
    recording.check(name + ".getObjectName()", [&] { return path.getObjectName(); });
    recording.check(name + ".getKeys()", [&] { return path.getKeys(); });
    recording.check(name + ".getKey(K)", [&] { return path.getKey("K"); });
    recording.check(name + ".getKeyT(K)", [&] { return path.getKeyT("K"); });
    recording.check(name + ".getKeyValue(K)", [&] { return path.getKeyValue("K"); });
    recording.check(name + ".keyHasValue(K)", [&] { return path.keyHasValue("K"); });
    recording.check(name + ".keyHasValue(n)", [&] { return path.keyHasValue("n"); });
    recording.check(name + ".isClassPath()", [&] { return path.isClassPath(); });
    recording.check(name + ".isInstancePath()", [&] { return path.isInstancePath(); });
    recording.check(name + " as bool", [&] { return path ? true : false; });
}

void checkKeySetters(Recording& recording, const std::string& name, const CIMObjectPath& path)
{
    const CIMValue null(CIMNULL);
    const CIMValue three(3);
    recording.check(name + ".setKeyValue(new)", [&] {
        const CIMObjectPath changed = CIMObjectPath(path).setKeyValue("z", three);
        return shown(changed) + shown(path);
    });
    recording.check(name + ".setKeyValue(K)", [&] { return CIMObjectPath(path).setKeyValue("K", three); });
    recording.check(name + ".setKeyValue(b)",
                    [&] { return CIMObjectPath(path).setKeyValue("B", CIMValue("7")); });
    recording.check(name + ".setKeyValue(null)", [&] { return CIMObjectPath(path).setKeyValue("z", null); });
    recording.check(name + ".setKeyValue(K,null)",
                    [&] { return CIMObjectPath(path).setKeyValue("K", null); });
    recording.check(name + ".addKey", [&] { return CIMObjectPath(path).addKey("K", three); });
    recording.check(name + ".addKey(null value)", [&] { return CIMObjectPath(path).addKey("K", null); });
    recording.check(name + ".addKey(property)",
                    [&] { return CIMObjectPath(path).addKey(qualified("K", three, "Key")); });
    recording.check(name + ".addKey(null property)",
                    [&] { return CIMObjectPath(path).addKey(CIMProperty(CIMNULL)); });
    recording.check(name + ".addKey(property without value)",
                    [&] { return CIMObjectPath(path).addKey(CIMProperty("z")); });
    recording.check(name + ".setKeys()", [&] { return CIMObjectPath(path).setKeys(someKeys()); });
    recording.check(name + ".setKeys(null property)",
                    [&] { return CIMObjectPath(path).setKeys(CIMPropertyArray(1, CIMProperty(CIMNULL))); });
    recording.check(name + ".setKeys(instance)", [&] { return CIMObjectPath(path).setKeys(someInstance()); });
    recording.check(name + ".setKeys(null instance)",
                    [&] { return CIMObjectPath(path).setKeys(CIMInstance(CIMNULL)); });
}

void checkSetters(Recording& recording, const std::string& name, const CIMObjectPath& path)
{
    recording.check(name + ".setClassName", [&] { return CIMObjectPath(path).setClassName("Z"); });
    recording.check(name + ".setObjectName", [&] { return CIMObjectPath(path).setObjectName("Z"); });
    for (const char* const nameSpace : {"", "/", "//a/b/", " a ", "\ta\n", "/ a", "a b"}) {
        recording.check(name + ".setNameSpace(" + quoted(nameSpace) + ")", [&] {
            const CIMObjectPath changed = CIMObjectPath(path).setNameSpace(nameSpace);
            return shown(changed.getNameSpace()) + shown(changed.toString());
        });
    }
    recording.check(name + ".setNull", [&] {
        CIMObjectPath changed(path);
        changed.setNull();
        return changed;
    });
}

void checkPair(Recording& recording, const Named<CIMObjectPath>& first, const Named<CIMObjectPath>& second)
{
    const CIMObjectPath& a = first.object;
    const CIMObjectPath& b = second.object;
    const std::string name = "CIMObjectPath " + first.name;
    recording.check(name + " equals " + second.name, [&] { return a.equals(b); });
    recording.check(name + " == " + second.name, [&] { return a == b; });
    recording.check(name + " != " + second.name, [&] { return a != b; });
    recording.check(name + " < " + second.name, [&] { return a < b; });
}

std::vector<Named<CIMObjectPath>> pathsToFit()
{
    const CIMObjectPath bare("theclass", "ns");
    const auto with = [&](const char* name, const CIMValue& value) {
        return CIMObjectPath(bare).setKeyValue(name, value);
    };
    CIMObjectPath link("link", "ns");
    link.setKeyValue("left", CIMValue("ns:C.k=\"v\"")).setKeyValue("RIGHT", CIMValue(CIMObjectPath("D")));
    return {
        {"none", bare},
        {"both", with("id", CIMValue(Int64(5))).setKeyValue("NAME", CIMValue("n"))},
        {"nonkey",
         with("size", CIMValue("12")).setKeyValue("name", CIMValue("n")).setKeyValue("zz", CIMValue(1))},
        {"bad", with("id", CIMValue("abc"))},
        {"overflow", with("id", CIMValue(Int64(70000)))},
        {"link", link},
        {"unknown only", with("zz", CIMValue(1))},
        {"null", CIMObjectPath(CIMNULL)},
    };
}

TEST(RecordedPaths, answerAsTheOriginal)
{
    Recording recording("paths");
    for (const std::string& text : recording.textsBetween("CIMObjectPath::parse(", ").toString()")) {
        checkParsing(recording, text);
    }
    for (const std::string& text : recording.textsBetween("CIMObjectPath::escape(", ")")) {
        checkEscaping(recording, text);
    }
    for (const Named<CIMObjectPath>& path : somePaths()) {
        const std::string name = "CIMObjectPath " + path.name;
        checkGetters(recording, name, path.object);
        checkKeySetters(recording, name, path.object);
        checkSetters(recording, name, path.object);
        for (const Named<CIMObjectPath>& other : somePaths()) {
            checkPair(recording, path, other);
        }
        if (path.name.compare(0, 5, "host ") == 0) {
            recording.check("CIMObjectPath.setHost(" + path.name.substr(5) + ")",
                            [&] { return shown(path.object) + shown(path.object.getHost()); });
        }
    }
    recording.check("CIMObjectPath(ns,null instance)",
                    [] { return CIMObjectPath(String("ns"), CIMInstance(CIMNULL)); });
    for (const Named<CIMObjectPath>& path : pathsToFit()) {
        for (const Named<CIMClass>& cimClass : someClasses()) {
            recording.check("CIMObjectPath.syncWithClass " + path.name + " with " + cimClass.name,
                            [&] { return CIMObjectPath(path.object).syncWithClass(cimClass.object); });
        }
    }
    recording.expectComplete(5743);
}

} // namespace
