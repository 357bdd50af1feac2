// Bool, Char16, CIMName and Array.
#include "OW_CIMName.hpp"
#include "Recording.hpp"
#include <gtest/gtest.h>
#include <iterator>

using namespace recorded;

namespace
{

const Excepted EXCEPTED[] = {
    {"a defect of the original: true != Bool(false) is false there", "bool != Bool 10", 1},
    {"undefined in the original: NUL within a text", R"(CIMValue\(Char16Array\)\.toString 0)", 1},
};

void checkBool(Recording& recording, bool a)
{
    for (const bool b : {false, true}) {
        const std::string both = std::string(" ") + (a ? "1" : "0") + (b ? "1" : "0");
        recording.check("Bool == Bool" + both, [&] { return Bool(a) == Bool(b); });
        recording.check("Bool != Bool" + both, [&] { return Bool(a) != Bool(b); });
        recording.check("Bool == bool" + both, [&] { return Bool(a) == b; });
        recording.check("Bool != bool" + both, [&] { return Bool(a) != b; });
        recording.check("bool == Bool" + both, [&] { return a == Bool(b); });
        recording.check("bool != Bool" + both, [&] { return a != Bool(b); });
        recording.check("Bool < Bool" + both, [&] { return Bool(a) < Bool(b); });
        recording.check("Bool > Bool" + both, [&] { return Bool(a) > Bool(b); });
    }
    const std::string name = a ? " 1" : " 0";
    recording.check("Bool.toString" + name, [&] { return Bool(a).toString(); });
    recording.check("Bool streamed" + name, [&] { return streamed(Bool(a)); });
    recording.check("!Bool" + name, [&] { return bool(!Bool(a)); });
}

void checkCharacter(Recording& recording, unsigned n)
{
    const Char16 c(static_cast<UInt16>(n));
    const std::string name = " " + std::to_string(n);
    recording.check("Char16.toString" + name, [&] { return c.toString(); });
    recording.check("Char16 streamed" + name, [&] { return streamed(c); });
    recording.check("Char16(char)" + name, [&] { return Char16(static_cast<char>(n)); });
    recording.check("Char16(Int8)" + name, [&] { return Char16(static_cast<Int8>(n)); });
    recording.check("Char16(UInt8)" + name, [&] { return Char16(static_cast<UInt8>(n)); });
    recording.check("Char16(Int32)" + name, [&] { return Char16(static_cast<Int32>(n)); });
    recording.check("Char16(UInt64)" + name, [&] { return Char16(static_cast<UInt64>(n)); });
    recording.check("Char16 as bool" + name, [&] { return c ? true : false; });
    recording.check("!Char16" + name, [&] { return !c; });
    recording.check("Char16 as UInt16" + name, [&] { return static_cast<UInt16>(c); });
    recording.check("Char16 < 300" + name, [&] { return c < Char16(UInt16(300)); });
    recording.check("Char16 == char" + name, [&] { return c == Char16('A'); });
    recording.check("CIMValue(Char16).toString" + name, [&] { return CIMValue(c).toString(); });
    recording.check("CIMValue(Char16Array).toString" + name,
                    [&] { return CIMValue(Char16Array(2, c)).toString(); });
}

void checkNames(Recording& recording)
{
    recording.check("CIMName()", [] { return CIMName().toString(); });
    recording.check("CIMName((const char*)0)",
                    [] { return CIMName(static_cast<const char*>(nullptr)).toString(); });
    recording.check("CIMName() as bool", [] { return CIMName() ? true : false; });
    recording.check("CIMName(\"\") as bool", [] { return CIMName("") ? true : false; });
    recording.check("CIMName(\"x\") as bool", [] { return CIMName("x") ? true : false; });
    recording.check("!CIMName(\"x\")", [] { return !CIMName("x"); });
    recording.check("CIMName streamed", [] { return streamed(CIMName("xY")); });
    recording.check("String == CIMName", [] { return String("AB") == CIMName("ab"); });
    recording.check("CIMName == \"lit\"", [] { return CIMName("AB") == "ab"; });
}

// Arrays of two different elements.
template <class T>
class ArrayCalls
{
  public:
    ArrayCalls(Recording& recording, const std::string& name, const T& a, const T& b)
        : m_recording(recording), m_name(name), m_a(a), m_b(b)
    {
    }

    void checkConstructors()
    {
        m_recording.check(m_name + " ()", [] { return Array<T>(); });
        m_recording.check(m_name + " (2,a)", [&] { return Array<T>(2, m_a); });
        m_recording.check(m_name + " (size_t,a)", [&] { return Array<T>(size_t(3), m_a); });
        m_recording.check(m_name + " (2)", [] { return Array<T>(size_t(2)).size(); });
        m_recording.check(m_name + " vector", [&] { return Array<T>(new std::vector<T>(2, m_b)); });
    }

    void checkElements()
    {
        m_recording.check(m_name + " []", [&] { return shown(Array<T>(2, m_a)[2]); });
        m_recording.check(m_name + " const []", [&] {
            const Array<T> x(2, m_a);
            return shown(x[7]);
        });
        m_recording.check(m_name + " [] huge", [&] {
            const Array<T> x;
            return shown(x[size_t(-1)]);
        });
        m_recording.check(m_name + " iterators", [&] {
            Array<T> x = endingInB(1);
            Array<T> y(x.begin(), x.end());
            std::string text = shown(y);
            for (auto i = y.rbegin(); i != y.rend(); ++i) {
                text += shown(*i);
            }
            return text;
        });
    }

    void checkAdditions()
    {
        m_recording.check(m_name + " push_back", [&] {
            Array<T> x;
            x.push_back(m_a);
            x.append(m_b);
            x += m_a;
            return shown(x) + shown(x.size()) + shown(x.empty());
        });
        m_recording.check(m_name + " appendArray self", [&] {
            Array<T> x(2, m_a);
            x.appendArray(x);
            return x;
        });
        m_recording.check(m_name + " insert", [&] {
            Array<T> x(2, m_a);
            x.insert(size_t(1), m_b);
            x.insert(x.begin(), m_b);
            return x;
        });
        m_recording.check(m_name + " insert end", [&] {
            Array<T> x(2, m_a);
            x.insert(size_t(2), m_b);
            return x;
        });
        m_recording.check(m_name + " insert range", [&] {
            Array<T> x(2, m_a);
            Array<T> y(2, m_b);
            x.insert(x.begin(), y.begin(), y.end());
            return x;
        });
        m_recording.check(m_name + " resize", [&] {
            Array<T> x(2, m_a);
            x.resize(3, m_b);
            return x;
        });
        m_recording.check(m_name + " reserve", [] {
            Array<T> x;
            x.reserve(20);
            return x.capacity() >= 20;
        });
    }

    void checkRemovals()
    {
        m_recording.check(m_name + " remove", [&] {
            Array<T> x = endingInB(2);
            x.remove(0);
            return x;
        });
        m_recording.check(m_name + " remove bad", [&] {
            Array<T> x(2, m_a);
            x.remove(2);
            return x;
        });
        for (const auto& [begin, end] : {std::pair(0, 2), {0, 4}, {0, 5}, {4, 4}, {1, 1}, {0, 0}}) {
            const std::string range = "(" + std::to_string(begin) + "," + std::to_string(end) + ")";
            m_recording.check(m_name + " remove" + range, [&, first = size_t(begin), last = size_t(end)] {
                Array<T> x = endingInB(3);
                x.remove(first, last);
                return x;
            });
        }
        m_recording.check(m_name + " erase", [&] {
            Array<T> x = endingInB(2);
            x.erase(x.begin());
            return x;
        });
        m_recording.check(m_name + " erase range", [&] {
            Array<T> x = endingInB(2);
            x.erase(x.begin(), x.begin() + 2);
            return x;
        });
        m_recording.check(m_name + " pop_back", [&] {
            Array<T> x = endingInB(2);
            x.pop_back();
            return shown(x) + shown(x.front()) + shown(x.back());
        });
    }

    void checkCopies()
    {
        m_recording.check(m_name + " clear", [&] {
            Array<T> x(2, m_a);
            const Array<T> y(x);
            x.clear();
            return shown(x) + shown(y);
        });
        m_recording.check(m_name + " copies", [&] {
            Array<T> x(2, m_a);
            const Array<T> y(x);
            x[0] = m_b;
            return shown(x) + shown(y);
        });
        m_recording.check(m_name + " swap", [&] {
            Array<T> x(2, m_a);
            Array<T> y;
            x.swap(y);
            swap(x, y);
            return shown(x) + shown(y);
        });
    }

  private:
    // The first element so many times, and the second one.
    Array<T> endingInB(int number) const
    {
        Array<T> x(number, m_a);
        x.push_back(m_b);
        return x;
    }

    Recording& m_recording;
    std::string m_name;
    T m_a;
    T m_b;
};

template <class T>
void checkArray(Recording& recording, const std::string& name, const T& a, const T& b)
{
    ArrayCalls<T> calls(recording, name, a, b);
    calls.checkConstructors();
    calls.checkElements();
    calls.checkAdditions();
    calls.checkRemovals();
    calls.checkCopies();
}

TEST(RecordedSmallTypes, answerAsTheOriginal)
{
    Recording recording("small-types", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    checkBool(recording, false);
    checkBool(recording, true);
    recording.check("Bool()", [] { return Bool(); });
    recording.check("Bool(5)", [] { return Bool(5); });
    for (const unsigned n :
         {0U, 1U, 65U, 127U, 128U, 0xE9U, 255U, 256U, 0x7FFU, 0x800U, 0x20ACU, 0xD800U, 0xFFFFU}) {
        checkCharacter(recording, n);
    }
    for (const std::string& text : recording.textsBetween("Char16(String) ", "")) {
        recording.check("Char16(String) " + quoted(text), [&] { return Char16(String(text.c_str())); });
    }
    checkNames(recording);
    checkArray(recording, "StringArray", String("a"), String("b"));
    checkArray(recording, "UInt16Array", UInt16(1), UInt16(2));
    checkArray(recording, "CIMParamValueArray", CIMParamValue("a", CIMValue(UInt16(1))), CIMParamValue("b"));
    checkArray(recording, "CIMPropertyArray", CIMProperty("a"), CIMProperty("b"));
    const char* const lists[] = {"", "a", "b", "a,a", "a,b", "b,a", "a,b,c", "A"};
    for (const char* const first : lists) {
        for (const char* const second : lists) {
            recording.check("StringArray ops " + quoted(first) + quoted(second), [&] {
                return comparisons(String(first).tokenize(","), String(second).tokenize(","));
            });
        }
    }
    recording.expectComplete(424);
}

} // namespace
