// String, and what names make of its comparisons.
#include "OW_CIMName.hpp"
#include "Recording.hpp"
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

using namespace recorded;

namespace
{

const char* const NO_TEXT = nullptr;

const Excepted EXCEPTED[] = {
    {"undefined in the original: most of these calls crash",
     R"(String (null|""|"abc").*\(const char\*\)0\)?)", 18},
    {"undefined in the original: NUL within a text", R"(String embedded NUL \+= "x")", 1},
};

// A call on a text, and how it is recorded before and behind the text.
struct OnText {
    const char* before;
    const char* behind;
    std::string (*answer)(const String& s);
};

#define ON_TEXT(BEFORE, BEHIND, EXPRESSION)                                                                  \
    {                                                                                                        \
        BEFORE, BEHIND, [](const String& s) { return shown(EXPRESSION); }                                    \
    }

std::string twoLines(const String& text)
{
    std::istringstream stream(text.c_str());
    const String first = String::getLine(stream);
    const String second = String::getLine(stream);
    return shown(first) + " " + shown(second) + (stream ? " good" : " bad") + (stream.eof() ? " eof" : "");
}

std::string allocated(const String& text)
{
    char* const copy = text.allocateCString();
    const std::string answer = shown(static_cast<const char*>(copy));
    std::free(copy);
    return answer;
}

// Of a copy, so that the operator for changes is called.
std::string changeable(String text, size_t beyond)
{
    return shown(text[beyond]);
}

std::string afterChange(String text)
{
    const String other(text);
    text[0] = 'X';
    return shown(text) + " " + shown(other);
}

const OnText CALLS[] = {
    ON_TEXT("String ", ".length()", s.length()),
    ON_TEXT("String ", ".empty()", s.empty()),
    ON_TEXT("String ", ".UTF8Length()", s.UTF8Length()),
    ON_TEXT("String ", ".isSpaces()", s.isSpaces()),
    ON_TEXT("String ", ".hashCode()", s.hashCode()),
    ON_TEXT("String ", ".toString()", s.toString()),
    ON_TEXT("String ", " streamed", streamed(s)),
    ON_TEXT("String ", ".toLowerCase()", String(s).toLowerCase()),
    ON_TEXT("String ", ".toUpperCase()", String(s).toUpperCase()),
    ON_TEXT("String ", ".ltrim()", String(s).ltrim()),
    ON_TEXT("String ", ".rtrim()", String(s).rtrim()),
    ON_TEXT("String ", ".trim()", String(s).trim()),
    ON_TEXT("String ", ".erase()", String(s).erase()),
    ON_TEXT("String ", ".toBool()", s.toBool()),
    ON_TEXT("String ", ".toReal32()", s.toReal32()),
    ON_TEXT("String ", ".toReal64()", s.toReal64()),
    ON_TEXT("String ", ".toChar16()", s.toChar16()),
    ON_TEXT("String ", ".toDateTime()", s.toDateTime()),
    ON_TEXT("Char16(String ", ")", Char16(s)),
    ON_TEXT("String ", ".tokenize()", s.tokenize()),
    ON_TEXT("String ", ".tokenize(\",\")", s.tokenize(",")),
    ON_TEXT("String ", ".tokenize(\"\")", s.tokenize("")),
    ON_TEXT("String ", ".tokenize(\"ab\")", s.tokenize("ab")),
    ON_TEXT("String ", ".tokenize(0)", s.tokenize(NO_TEXT)),
    ON_TEXT("String ", ".tokenize(\",\", RETURN)", s.tokenize(",", String::E_RETURN_DELIMITERS)),
    ON_TEXT("String ", ".tokenize(\",\", E_DISCARD_TOKENS)", s.tokenize(",", String::E_DISCARD_TOKENS)),
    ON_TEXT("String ", ".tokenize(\",\", E_RETURN_TOKENS)", s.tokenize(",", String::E_RETURN_TOKENS)),
    ON_TEXT("String ", ".tokenize(\",\", DISCARD, EMPTY)",
            s.tokenize(",", String::E_DISCARD_DELIMITERS, String::E_RETURN_EMPTY_TOKENS)),
    ON_TEXT("String ", ".tokenize(\",\", RETURN, EMPTY)",
            s.tokenize(",", String::E_RETURN_DELIMITERS, String::E_RETURN_EMPTY_TOKENS)),
    ON_TEXT("String ", ".indexOf('\\0')", s.indexOf('\0')),
    ON_TEXT("String ", ".lastIndexOf('\\0')", s.lastIndexOf('\0')),
    ON_TEXT("const String ", "[0]", s[0]),
    ON_TEXT("const String ", "[length]", s[s.length()]),
    ON_TEXT("const String ", "[length+1]", s[s.length() + 1]),
    ON_TEXT("String ", "[0]", changeable(s, 0)),
    ON_TEXT("String ", "[length]", changeable(s, s.length())),
    ON_TEXT("String ", "[length+1]", changeable(s, s.length() + 1)),
    ON_TEXT("String ", "[0]='X' unshares", afterChange(s)),
    ON_TEXT("String ", ".charAt(0)", s.charAt(0)),
    ON_TEXT("String ", ".allocateCString()", allocated(s)),
    ON_TEXT("String ", " + 'x'", s + 'x'),
    ON_TEXT("String ", " + '\\0'", s + '\0'),
    ON_TEXT("String 'x' + ", "", 'x' + s),
    ON_TEXT("String '\\0' + ", "", '\0' + s),
    ON_TEXT("String ", " + (const char*)0", s + NO_TEXT),
    ON_TEXT("String (const char*)0 + ", "", NO_TEXT + s),
    ON_TEXT("String ", " += 'x'", String(s) += 'x'),
    ON_TEXT("String ", " += '\\0'", String(s) += '\0'),
    ON_TEXT("String ", " += \"\"", String(s) += ""),
    ON_TEXT("String ", ".concat((const char*)0)", String(s).concat(NO_TEXT)),
    ON_TEXT("String ", ".concat('y')", String(s).concat('y')),
    ON_TEXT("String ", ".startsWith('a')", s.startsWith('a')),
    ON_TEXT("String ", ".startsWith('\\0')", s.startsWith('\0')),
    ON_TEXT("String ", ".endsWith('c')", s.endsWith('c')),
    ON_TEXT("String::getLine of ", "", twoLines(s)),
};

template <class Number>
void checkConversion(Recording& recording, const std::string& name, const String& text, const char* type,
                     Number (String::*convert)(int) const)
{
    for (const int base : {10, 0, 16, 8, 36}) {
        recording.check("String " + name + ".to" + type + "(" + std::to_string(base) + ")",
                        [&] { return (text.*convert)(base); });
    }
}

void checkConversions(Recording& recording, const std::string& name, const String& text)
{
    checkConversion(recording, name, text, "UInt8", &String::toUInt8);
    checkConversion(recording, name, text, "Int8", &String::toInt8);
    checkConversion(recording, name, text, "UInt16", &String::toUInt16);
    checkConversion(recording, name, text, "Int16", &String::toInt16);
    checkConversion(recording, name, text, "UInt32", &String::toUInt32);
    checkConversion(recording, name, text, "Int32", &String::toInt32);
    checkConversion(recording, name, text, "UInt64", &String::toUInt64);
    checkConversion(recording, name, text, "Int64", &String::toInt64);
    checkConversion(recording, name, text, "UnsignedInt", &String::toUnsignedInt);
    checkConversion(recording, name, text, "Int", &String::toInt);
}

void checkPositions(Recording& recording, const std::string& name, const String& text)
{
    const size_t npos = String::npos;
    const std::string string = "String " + name;
    for (size_t begin = 0; begin < 5; ++begin) {
        const std::string from = std::to_string(begin);
        for (const size_t count : {size_t(0), size_t(1), size_t(3), size_t(99), npos}) {
            const std::string range =
                "(" + from + "," + (count == npos ? "npos" : std::to_string(count)) + ")";
            recording.check(string + ".substring" + range, [&] { return text.substring(begin, count); });
            recording.check(string + ".erase" + range, [&] { return String(text).erase(begin, count); });
        }
        recording.check(string + ".indexOf('b'," + from + ")", [&] { return text.indexOf('b', begin); });
        recording.check(string + ".lastIndexOf('b'," + from + ")",
                        [&] { return text.lastIndexOf('b', begin); });
        for (const char* const sought : {"", "b", "bc"}) {
            const std::string arguments = "(" + quoted(sought) + "," + from + ")";
            recording.check(string + ".indexOf" + arguments, [&] { return text.indexOf(sought, begin); });
            recording.check(string + ".lastIndexOf" + arguments,
                            [&] { return text.lastIndexOf(sought, begin); });
        }
    }
}

void checkText(Recording& recording, const std::string& name, const String& text)
{
    for (const OnText& call : CALLS) {
        recording.check(call.before + name + call.behind, [&] { return call.answer(text); });
    }
    checkConversions(recording, name, text);
    checkPositions(recording, name, text);
}

void checkNullPointers(Recording& recording, const std::string& name, const String& text)
{
    recording.check("String " + name + ".endsWith((const char*)0)", [&] { return text.endsWith(NO_TEXT); });
    recording.check("String " + name + ".indexOf((const char*)0)", [&] { return text.indexOf(NO_TEXT); });
    recording.check("String " + name + ".lastIndexOf((const char*)0)",
                    [&] { return text.lastIndexOf(NO_TEXT); });
    recording.check("String (const char*)0 < " + name, [&] { return NO_TEXT < text; });
}

void checkPair(Recording& recording, const std::string& first, const std::string& second)
{
    const String a(first.c_str());
    const String b(second.c_str());
    const std::string arguments = "(" + quoted(first) + ", " + quoted(second) + ")";
    const auto nocase = String::E_CASE_INSENSITIVE;
    recording.check("String.compareTo" + arguments,
                    [&] { return (a.compareTo(b) > 0) - (a.compareTo(b) < 0); });
    recording.check("String.compareToIgnoreCase" + arguments, [&] { return a.compareToIgnoreCase(b); });
    recording.check("String.equalsIgnoreCase" + arguments, [&] { return a.equalsIgnoreCase(b.c_str()); });
    recording.check("String.startsWith" + arguments, [&] { return a.startsWith(b); });
    recording.check("String.startsWith nocase" + arguments, [&] { return a.startsWith(b, nocase); });
    recording.check("String.endsWith" + arguments, [&] { return a.endsWith(b); });
    recording.check("String.endsWith nocase" + arguments, [&] { return a.endsWith(b, nocase); });
    recording.check("String.indexOf" + arguments, [&] { return a.indexOf(b); });
    recording.check("String.lastIndexOf" + arguments, [&] { return a.lastIndexOf(b); });
    recording.check("String ops" + arguments, [&] { return comparisons(a, b); });
    recording.check("CIMName ops" + arguments, [&] { return comparisons(CIMName(a), CIMName(b)); });
    recording.check("String + String" + arguments, [&] { return a + b; });
}

void checkConstructors(Recording& recording)
{
    for (const Int64 n : {Int64(0), Int64(1), Int64(-1), Int64(127), Int64(-128), Int64(255), Int64(65535),
                          Int64(2147483647), Int64(-2147483648)}) {
        const std::string number = "(" + std::to_string(n) + ")";
        recording.check("String(Int32)" + number, [&] { return String(static_cast<Int32>(n)); });
        recording.check("String(UInt32)" + number, [&] { return String(static_cast<UInt32>(n)); });
        recording.check("String(Int64)" + number, [&] { return String(n); });
        recording.check("String(UInt64)" + number, [&] { return String(static_cast<UInt64>(n)); });
        recording.check("String(UInt8)" + number, [&] { return String(static_cast<UInt8>(n)); });
        recording.check("String(Int8)" + number, [&] { return String(static_cast<Int8>(n)); });
        recording.check("String(UInt16)" + number, [&] { return String(static_cast<UInt16>(n)); });
        recording.check("String(char)" + number, [&] { return String(static_cast<char>(n)); });
    }
    for (const double n :
         {0.0, -0.0, 1.0, 2.5, 1.0 / 3, 1e20, 1e5, 1e6, 123456.0, 1234567.0, 1e-5, 1e-4, -1e100, 100000.5}) {
        recording.check("String(Real64)(" + std::to_string(n) + ")", [&] { return String(n); });
        // Beyond a float's range the conversion is undefined, and infinite in practice.
        const Real32 single = n == -1e100 ? -HUGE_VALF : static_cast<Real32>(n);
        recording.check("String(Real32)(" + std::to_string(n) + ")", [&] { return String(single); });
    }
    const Char16Array letters(2, Char16(UInt16(0x41)));
    recording.check("String(true)", [] { return String(true); });
    recording.check("String(Bool(true))", [] { return String(Bool(true)); });
    recording.check("String(Char16(0xe9))", [] { return String(Char16(UInt16(0xE9))); });
    recording.check("String(Char16Array)", [&] { return String(letters); });
    recording.check("String(Char16Array())", [] { return String(Char16Array()); });
    recording.check("String(CIMDateTime)", [] { return String(CIMDateTime("19990102030405.000006+007")); });
    recording.check("String(CIMObjectPath)", [] { return String(CIMObjectPath("C", "ns")); });
    recording.check("String(\"abc\",2)", [] { return String("abc", 2); });
    recording.check("String(0,2)", [] { return String(NO_TEXT, 2); });
    recording.check("String(E_TAKE_OWNERSHIP)", [] {
        char* const bytes = new char[4];
        std::strcpy(bytes, "abc");
        return String(String::E_TAKE_OWNERSHIP, bytes, 3);
    });
}

void checkSingleCalls(Recording& recording)
{
    recording.check("String.format", [] {
        String s("old");
        const int length = s.format("%d-%s", 7, "x");
        return shown(s) + shown(length);
    });
    recording.check("String.format long", [] {
        String s;
        const int length = s.format("%200d", 7);
        return shown(s.length()) + shown(length);
    });
    recording.check("String.format empty", [] {
        String s("old");
        const int length = s.format("%s", "");
        return shown(s) + shown(length) + shown(s[0]);
    });
    recording.check("String.swap", [] {
        String a("x");
        String b;
        a.swap(b);
        return shown(a) + shown(b);
    });
    recording.check("String += itself", [] {
        String a("xy");
        a += a;
        return a;
    });
    recording.check("String = itself", [] {
        String a("xy");
        const String& same = a;
        a = same;
        return a;
    });
    recording.check("String embedded NUL += x", [] {
        String a("a\0b", 3);
        a += 'x';
        return shown(a.length()) + shown(a.c_str());
    });
    recording.check("String embedded NUL == \"a\"", [] { return String("a\0b", 3) == String("a"); });
    recording.check("String npos", [] { return size_t(String::npos); });
    recording.check("String flags", [] {
        return int(String::E_DISCARD_DELIMITERS) * 100 + int(String::E_RETURN_DELIMITERS);
    });
    recording.check("String flags2", [] {
        return int(String::E_SKIP_EMPTY_TOKENS) * 100 + int(String::E_RETURN_EMPTY_TOKENS);
    });
    recording.check("String flags3",
                    [] { return int(String::E_CASE_SENSITIVE) * 100 + int(String::E_CASE_INSENSITIVE); });
    for (const std::string& text : recording.textsBetween("String::getLine thrice ", "")) {
        recording.check("String::getLine thrice " + quoted(text), [&] {
            std::istringstream stream(text);
            std::string lines;
            for (int i = 0; i < 3; ++i) {
                const char* const before = stream ? "g" : "b";
                lines += shown(String::getLine(stream)) + before;
            }
            return lines;
        });
    }
}

TEST(RecordedStrings, answerAsTheOriginal)
{
    Recording recording("strings", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    checkText(recording, "null", String());
    for (const std::string& text : recording.textsBetween("String ", ".length()")) {
        checkText(recording, quoted(text), String(text.c_str()));
    }
    checkNullPointers(recording, "null", String());
    checkNullPointers(recording, "\"\"", String(""));
    checkNullPointers(recording, "\"abc\"", String("abc"));
    recording.check("String null.startsWith((const char*)0)", [] { return String().startsWith(NO_TEXT); });
    const std::vector<std::string> pairs = recording.textsBetween("String.compareTo(\"\", ", ")");
    for (const std::string& first : pairs) {
        for (const std::string& second : pairs) {
            checkPair(recording, first, second);
        }
    }
    checkConstructors(recording);
    checkSingleCalls(recording);
    recording.expectComplete(81895);
}

} // namespace
