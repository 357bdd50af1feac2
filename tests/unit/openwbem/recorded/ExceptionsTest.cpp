// CIMException, the other exceptions, and the macros that throw and make them.
#include "OW_Array.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_DateTime.hpp"
#include "OW_Logger.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "OW_NoSuchQualifierException.hpp"
#include "OW_OperationContext.hpp"
#include "Recording.hpp"
#include <gtest/gtest.h>
#include <iterator>
#include <memory>

OW_DECLARE_EXCEPTION(Foo)
OW_DEFINE_EXCEPTION(Foo)

using namespace recorded;

namespace
{

const Excepted EXCEPTED[] = {
    {"refused by the recording's compiler, and not there here", "OW_THROW_SUBEX", 1},
};

CIMException old(CIMException::ErrNoType code)
{
    return CIMException("g", 1, code, "old");
}

void checkGetters(Recording& recording, const std::string& name, const CIMException& e)
{
    recording.check(name + ".getMessage()", [&] { return e.getMessage(); });
    recording.check(name + ".what()", [&] { return e.what(); });
    recording.check(name + ".Exception::getMessage()", [&] { return e.Exception::getMessage(); });
    recording.check(name + ".getErrNo()", [&] { return e.getErrNo(); });
    recording.check(name + ".getErrorCode()", [&] { return e.getErrorCode(); });
    recording.check(name + ".getSubClassId()", [&] { return e.getSubClassId(); });
    recording.check(name + " streamed", [&] { return streamed(e); });
    recording.check(name + ".getFile()", [&] { return e.getFile(); });
    recording.check(name + ".getLine()", [&] { return e.getLine(); });
    recording.check(name + ".type()", [&] { return e.type(); });
}

void checkCopies(Recording& recording, const std::string& name, const CIMException& e)
{
    recording.check(name + " copied", [&] {
        const CIMException copy(e);
        return shown(copy) + shown(copy.getMessage()) + shown(copy.getLine());
    });
    recording.check(name + " cloned", [&] { return shown(*std::unique_ptr<CIMException>(e.clone())); });
    recording.check(name + " assigned", [&] {
        CIMException other = old(CIMException::FAILED);
        other.getMessage();
        other = e;
        return shown(other) + shown(other.getFile());
    });
    recording.check(name + " swap", [&] {
        CIMException first(e);
        CIMException second = old(CIMException::NOT_FOUND);
        first.swap(second);
        return shown(first) + shown(second);
    });
}

// Before and after the message has been asked for, which is made then.
void checkOtherCodes(Recording& recording, const std::string& name, const CIMException& e)
{
    recording.check(name + ".setErrNo before", [&] {
        CIMException copy(e);
        copy.setErrNo(CIMException::NOT_FOUND);
        return shown(copy);
    });
    recording.check(name + ".setErrNo after", [&] {
        CIMException copy(e);
        copy.getMessage();
        copy.setErrNo(CIMException::NOT_FOUND);
        return shown(copy);
    });
    recording.check(name + ".setErrNo after, copied", [&] {
        CIMException copy(e);
        copy.getMessage();
        CIMException second(copy);
        second.setErrNo(CIMException::NOT_FOUND);
        return shown(second);
    });
}

void checkCodes(Recording& recording)
{
    for (const int code : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 99, 200}) {
        for (const char* const text : {static_cast<const char*>(nullptr), "", "text", "general error",
                                       "general error: more", "General error", "class does not exist (x)",
                                       "unknown error", "unknown error x", "no error", " ", "\u00E9\n"}) {
            const CIMException e("f.cpp", 7, static_cast<CIMException::ErrNoType>(code), text);
            const std::string name = "CIMException(" + std::to_string(code) + "," + shown(text) + ")";
            checkGetters(recording, name, e);
            checkCopies(recording, name, e);
            checkOtherCodes(recording, name, e);
        }
    }
}

void checkPlacesAndCauses(Recording& recording)
{
    recording.check("CIMException(0,0)",
                    [] { return streamed(CIMException(nullptr, 0, CIMException::FAILED)); });
    recording.check("CIMException(\"\",0)",
                    [] { return streamed(CIMException("", 0, CIMException::FAILED, "m")); });
    recording.check("CIMException(0,0).getFile()",
                    [] { return shown(CIMException(nullptr, 0, CIMException::FAILED).getFile()); });
    recording.check("CIMException with other", [] {
        const CIMException cause("o", 2, CIMException::NOT_FOUND, "other");
        const CIMException e("f", 1, CIMException::FAILED, "m", &cause);
        const Exception* const held = e.getSubException();
        return shown(e) + (held ? shown(*held) + (held == &cause ? "same" : "copy") : std::string("none"));
    });
    recording.check("CIMException without other", [] {
        return CIMException("f", 1, CIMException::FAILED, "m").getSubException() == nullptr;
    });
}

template <class Throw>
std::string caught(Throw doThrow)
{
    try {
        doThrow();
    } catch (const Exception& e) {
        return shown(e) + shown(*e.getSubException());
    }
    return "none";
}

void checkMacros(Recording& recording)
{
    recording.check("OW_THROWCIM", []() -> bool { OW_THROWCIM(CIMException::NOT_FOUND); });
    recording.check("OW_THROWCIMMSG", []() -> bool { OW_THROWCIMMSG(CIMException::NOT_FOUND, "m"); });
    recording.check("OW_THROW", []() -> bool { OW_THROW(FooException, "m"); });
    recording.check("OW_THROW_ERR", []() -> bool { OW_THROW_ERR(FooException, "m", 5); });
    recording.check("OW_THROWCIM_SUBEX", [] {
        const FooException cause("a", 1, "sub");
        return caught([&] { OW_THROWCIM_SUBEX(CIMException::FAILED, "m", &cause); });
    });
}

void checkDeclared(Recording& recording)
{
    const FooException e("f", 3, "m");
    recording.check("FooException", [] {
        const FooException all("f", 3, "m", 4, nullptr, 5);
        return shown(all) + shown(all.getSubClassId()) + streamed(all);
    });
    recording.check("FooException defaults",
                    [&] { return shown(e) + shown(e.getSubClassId()) + shown(e.getErrorCode()); });
    recording.check("FooException nulls", [] {
        const FooException none(nullptr, 0, nullptr);
        return shown(none) + shown(none.getFile()) + streamed(none);
    });
    recording.check("FooException negative line", [] { return streamed(FooException("f", -1, "")); });
    recording.check("FooException clone", [&] {
        const Exception& base = e;
        const std::unique_ptr<FooException> copy(static_cast<FooException*>(base.clone()));
        return shown(static_cast<const Exception&>(*copy));
    });
    recording.check("FooException copy", [&] {
        FooException other(e);
        other = FooException("g", 4, "n");
        return shown(e) + shown(other) + shown(other.getFile());
    });
}

template <class Kind>
void checkKind(Recording& recording, const std::string& name)
{
    recording.check(name + " type", [] { return Kind("f", 1, "m").type(); });
}

template <class Kind>
void checkSubClass(Recording& recording, const std::string& name)
{
    recording.check(name + " subclass", [] { return Kind("f", 1, "m").getSubClassId() != -1; });
}

void checkKinds(Recording& recording)
{
    checkKind<NULLValueException>(recording, "NULLValueException");
    checkKind<NoSuchPropertyException>(recording, "NoSuchPropertyException");
    checkKind<NoSuchQualifierException>(recording, "NoSuchQualifierException");
    checkKind<StringConversionException>(recording, "StringConversionException");
    checkKind<OutOfBoundsException>(recording, "OutOfBoundsException");
    checkKind<ValueCastException>(recording, "ValueCastException");
    checkKind<CIMDateTimeException>(recording, "CIMDateTimeException");
    checkKind<DateTimeException>(recording, "DateTimeException");
    checkKind<ContextDataNotFoundException>(recording, "ContextDataNotFoundException");
    checkKind<LoggerException>(recording, "LoggerException");
    checkSubClass<NULLValueException>(recording, "NULLValueException");
    checkSubClass<ValueCastException>(recording, "ValueCastException");
    checkSubClass<OutOfBoundsException>(recording, "OutOfBoundsException");
    recording.check("CIMDateTimeException is CIMException", [] {
        const CIMDateTimeException e("f", 1, "m");
        const Exception& base = e;
        return std::string(dynamic_cast<const CIMException*>(&base) ? "yes" : "no");
    });
    recording.check("Exception constants", [] {
        return shown(int(Exception::UNKNOWN_SUBCLASS_ID)) + shown(int(Exception::UNKNOWN_ERROR_CODE));
    });
}

TEST(RecordedExceptions, answerAsTheOriginal)
{
    Recording recording("exceptions", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    checkCodes(recording);
    checkPlacesAndCauses(recording);
    checkMacros(recording);
    checkDeclared(recording);
    checkKinds(recording);
    recording.expectComplete(4519);
}

} // namespace
