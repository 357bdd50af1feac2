// The interface that the provider, the object managers and the tests are built against, member by member and
// type by type. The stand-in and an installed OpenWBEM of the late 3.0.3 headers must both satisfy this file;
// where it stops compiling, one of them differs. It uses nothing that only one of them has.
#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_Char16.hpp"
#include "OW_CommonFwd.hpp"
#include "OW_IntrusiveReference.hpp"
#include "OW_Logger.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "OW_NoSuchQualifierException.hpp"
#include "OW_OperationContext.hpp"
#include "OW_String.hpp"
#include <string>
#include <type_traits>
#include <vector>

using namespace OpenWBEM;

namespace
{

// Takes the address of a member as a pointer of exactly the given type; overloads and constness must match.
template <class Pointer>
void exactly(Pointer)
{
}

template <class T, class... Arguments>
constexpr bool made = std::is_constructible<T, Arguments...>::value;
template <class From, class To>
constexpr bool converts = std::is_convertible<From, To>::value;

static_assert(sizeof(UInt8) == 1 && sizeof(UInt16) == 2 && sizeof(UInt32) == 4 && sizeof(UInt64) == 8,
              "sizes");
template <class Type, class Expected>
constexpr bool same = std::is_same<Type, Expected>::value;
static_assert(same<UInt8, unsigned char>, "UInt8");
static_assert(same<Int8, signed char>, "Int8");
static_assert(same<UInt16, unsigned short>, "UInt16");
static_assert(same<Int16, short>, "Int16");
static_assert(same<UInt32, unsigned int>, "UInt32");
static_assert(same<Int32, int>, "Int32");
static_assert(same<Real32, float>, "Real32");
static_assert(same<Real64, double>, "Real64");
static_assert(same<UInt64, std::conditional<sizeof(long) == 8, unsigned long, unsigned long long>::type>,
              "64 bits are a long where long has them");
static_assert(same<Int64, std::conditional<sizeof(long) == 8, long, long long>::type>, "likewise");

static_assert(converts<const char*, String>, "only a C string becomes a String silently");
static_assert(made<String, Int32> && made<String, UInt32> && made<String, Int64> && made<String, UInt64>,
              "numbers");
static_assert(made<String, Real64> && made<String, char> && made<String, const char*, size_t>, "others");
static_assert(made<String, Bool> && made<String, Char16> && made<String, CIMDateTime> &&
                  made<String, CIMObjectPath>,
              "texts of other types");
static_assert(!converts<int, String> && !converts<char, String> && !converts<Bool, String>, "explicit");
static_assert(!converts<const char*, std::string> || !made<String, std::string>, "no std::string");
static_assert(!converts<String, std::string> && !converts<String, const char*> && !converts<String, bool>,
              "no way out");

static_assert(converts<bool, Bool> && converts<Bool, bool>, "Bool and bool");
static_assert(!made<Bool, const char*> && !made<Bool, int*>, "a pointer is no boolean");
static_assert(converts<UInt16, Char16> && made<Char16, char> && made<Char16, String>, "Char16");
static_assert(!converts<String, Char16>, "explicit");

static_assert(!made<Exception, const char*, int, const char*>, "only subclasses are made");
static_assert(std::is_base_of<std::exception, Exception>::value, "a standard exception");
static_assert(std::is_base_of<Exception, CIMException>::value, "a CIM exception is one of OpenWBEM's");
static_assert(made<CIMException, const char*, int, CIMException::ErrNoType>, "without a text");
static_assert(made<CIMException, const char*, int, CIMException::ErrNoType, const char*>, "with a text");
static_assert(!made<CIMException, const char*, int, int>, "a plain number is no code");
static_assert(!made<CIMException, const char*, int, CIMException::ErrNoType, String>, "a String is no text");

// Not what a handler of CIM exceptions catches.
template <class E>
constexpr bool isOther =
    std::is_base_of<Exception, E>::value && !std::is_base_of<CIMException, E>::value &&
    made<E, const char*, int, const char*> && made<E, const char*, int, const char*, int>;
static_assert(isOther<ValueCastException> && isOther<StringConversionException>,
              "ValueCast, StringConversion");
static_assert(isOther<NoSuchPropertyException> && isOther<NoSuchQualifierException>, "NoSuch...");
static_assert(isOther<NULLValueException> && isOther<OutOfBoundsException>, "NULLValue, OutOfBounds");
static_assert(isOther<CIMDateTimeException> && isOther<ContextDataNotFoundException>,
              "CIMDateTime, ContextData");

static_assert(CIMException::SUCCESS == 0 && CIMException::FAILED == 1 && CIMException::ACCESS_DENIED == 2 &&
                  CIMException::INVALID_NAMESPACE == 3 && CIMException::INVALID_PARAMETER == 4 &&
                  CIMException::INVALID_CLASS == 5 && CIMException::NOT_FOUND == 6 &&
                  CIMException::NOT_SUPPORTED == 7 && CIMException::CLASS_HAS_CHILDREN == 8 &&
                  CIMException::CLASS_HAS_INSTANCES == 9 && CIMException::INVALID_SUPERCLASS == 10 &&
                  CIMException::ALREADY_EXISTS == 11 && CIMException::NO_SUCH_PROPERTY == 12 &&
                  CIMException::TYPE_MISMATCH == 13 && CIMException::QUERY_LANGUAGE_NOT_SUPPORTED == 14 &&
                  CIMException::INVALID_QUERY == 15 && CIMException::METHOD_NOT_AVAILABLE == 16 &&
                  CIMException::METHOD_NOT_FOUND == 17,
              "status codes");

static_assert(std::is_base_of<IntrusiveCountableBase, Logger>::value, "a logger is counted");
static_assert(std::is_same<LoggerRef, IntrusiveReference<Logger>>::value, "by references");
static_assert(converts<Logger*, LoggerRef> && !converts<LoggerRef, Logger*>, "made of a pointer");
static_assert(!std::is_copy_constructible<OperationContext>::value, "a context is not copied");

using Items = StringArray;
static_assert(same<StringArray, Array<String>>, "StringArray");
static_assert(same<UInt16Array, Array<UInt16>>, "UInt16Array");
static_assert(same<BoolArray, Array<Bool>>, "BoolArray");
static_assert(made<Items, size_t> && !converts<size_t, Items> && made<Items, size_t, String> &&
                  made<Items, int, String> && made<Items, long, String> &&
                  made<Items, std::vector<String>*> && !converts<std::vector<String>*, Items>,
              "array constructors");

} // namespace

void checkStringInterface()
{
    exactly<size_t (String::*)() const>(&String::length);
    exactly<bool (String::*)() const>(&String::empty);
    exactly<size_t (String::*)() const>(&String::UTF8Length);
    exactly<const char* (String::*)() const>(&String::c_str);
    exactly<char (String::*)(size_t) const>(&String::charAt);
    exactly<const char& (String::*)(size_t) const>(&String::operator[]);
    exactly<char& (String::*)(size_t)>(&String::operator[]);
    exactly<int (String::*)(const char*, ...)>(&String::format);
    exactly<StringArray (String::*)(const char*, String::EReturnDelimitersFlag, String::EEmptyTokenReturnFlag)
                const>(&String::tokenize);
    exactly<int (String::*)(const String&) const>(&String::compareTo);
    exactly<int (String::*)(const char*) const>(&String::compareTo);
    exactly<int (String::*)(const String&) const>(&String::compareToIgnoreCase);
    exactly<int (String::*)(const char*) const>(&String::compareToIgnoreCase);
    exactly<bool (String::*)(const String&) const>(&String::equals);
    exactly<bool (String::*)(const char*) const>(&String::equals);
    exactly<bool (String::*)(const String&) const>(&String::equalsIgnoreCase);
    exactly<bool (String::*)(const char*) const>(&String::equalsIgnoreCase);
    exactly<bool (String::*)(const char*, String::EIgnoreCaseFlag) const>(&String::startsWith);
    exactly<bool (String::*)(const String&, String::EIgnoreCaseFlag) const>(&String::startsWith);
    exactly<bool (String::*)(char) const>(&String::startsWith);
    exactly<bool (String::*)(const char*, String::EIgnoreCaseFlag) const>(&String::endsWith);
    exactly<bool (String::*)(const String&, String::EIgnoreCaseFlag) const>(&String::endsWith);
    exactly<bool (String::*)(char) const>(&String::endsWith);
    exactly<size_t (String::*)(char, size_t) const>(&String::indexOf);
    exactly<size_t (String::*)(const char*, size_t) const>(&String::indexOf);
    exactly<size_t (String::*)(const String&, size_t) const>(&String::indexOf);
    exactly<size_t (String::*)(char, size_t) const>(&String::lastIndexOf);
    exactly<size_t (String::*)(const char*, size_t) const>(&String::lastIndexOf);
    exactly<String (String::*)(size_t, size_t) const>(&String::substring);
    exactly<String& (String::*)(const char*)>(&String::concat);
    exactly<String& (String::*)(const String&)>(&String::concat);
    exactly<String& (String::*)(char)>(&String::concat);
    exactly<String& (String::*)(const char*)>(&String::operator+=);
    exactly<String& (String::*)(const String&)>(&String::operator+=);
    exactly<String& (String::*)(char)>(&String::operator+=);
    exactly<String& (String::*)(const String&)>(&String::operator=);
    exactly<String& (String::*)()>(&String::toLowerCase);
    exactly<String& (String::*)()>(&String::toUpperCase);
    exactly<String& (String::*)()>(&String::ltrim);
    exactly<String& (String::*)()>(&String::rtrim);
    exactly<String& (String::*)()>(&String::trim);
    exactly<String& (String::*)()>(&String::erase);
    exactly<String& (String::*)(size_t, size_t)>(&String::erase);
    exactly<bool (String::*)() const>(&String::isSpaces);
    exactly<UInt32 (String::*)() const>(&String::hashCode);
    exactly<String (String::*)() const>(&String::toString);
    exactly<char* (String::*)() const>(&String::allocateCString);
    exactly<bool (String::*)() const>(&String::toBool);
    exactly<Real32 (String::*)() const>(&String::toReal32);
    exactly<Real64 (String::*)() const>(&String::toReal64);
    exactly<UInt8 (String::*)(int) const>(&String::toUInt8);
    exactly<Int8 (String::*)(int) const>(&String::toInt8);
    exactly<UInt16 (String::*)(int) const>(&String::toUInt16);
    exactly<Int16 (String::*)(int) const>(&String::toInt16);
    exactly<UInt32 (String::*)(int) const>(&String::toUInt32);
    exactly<Int32 (String::*)(int) const>(&String::toInt32);
    exactly<UInt64 (String::*)(int) const>(&String::toUInt64);
    exactly<Int64 (String::*)(int) const>(&String::toInt64);
    exactly<String (*)(std::istream&)>(&String::getLine);
}

void checkBasicTypes()
{
    exactly<String (Bool::*)() const>(&Bool::toString);
    exactly<UInt16 (Char16::*)() const>(&Char16::getValue);
    exactly<String (Char16::*)() const>(&Char16::toString);
}

void checkArrayInterface()
{
    exactly<Items::size_type (Items::*)() const>(&Items::size);
    exactly<Items::size_type (Items::*)() const>(&Items::capacity);
    exactly<Items::size_type (Items::*)() const>(&Items::max_size);
    exactly<bool (Items::*)() const>(&Items::empty);
    exactly<Items::reference (Items::*)(Items::size_type)>(&Items::operator[]);
    exactly<Items::const_reference (Items::*)(Items::size_type) const>(&Items::operator[]);
    exactly<Items::iterator (Items::*)()>(&Items::begin);
    exactly<Items::const_iterator (Items::*)() const>(&Items::begin);
    exactly<Items::iterator (Items::*)()>(&Items::end);
    exactly<Items::const_iterator (Items::*)() const>(&Items::end);
    exactly<Items::reference (Items::*)()>(&Items::front);
    exactly<Items::const_reference (Items::*)() const>(&Items::front);
    exactly<Items::reference (Items::*)()>(&Items::back);
    exactly<Items::const_reference (Items::*)() const>(&Items::back);
    exactly<void (Items::*)(const String&)>(&Items::push_back);
    exactly<void (Items::*)(const String&)>(&Items::append);
    exactly<Items& (Items::*)(const String&)>(&Items::operator+=);
    exactly<void (Items::*)(const Items&)>(&Items::appendArray);
    exactly<void (Items::*)()>(&Items::pop_back);
    exactly<void (Items::*)()>(&Items::clear);
    exactly<void (Items::*)(Items::size_type)>(&Items::reserve);
    exactly<void (Items::*)(Items&)>(&Items::swap);
    exactly<Items::iterator (Items::*)(Items::iterator, const String&)>(&Items::insert);
    exactly<void (Items::*)(Items::size_type, const String&)>(&Items::insert);
    exactly<void (Items::*)(Items::size_type)>(&Items::remove);
    exactly<void (Items::*)(Items::size_type, Items::size_type)>(&Items::remove);
    exactly<Items::iterator (Items::*)(Items::iterator)>(&Items::erase);
    exactly<Items::iterator (Items::*)(Items::iterator, Items::iterator)>(&Items::erase);
    exactly<void (Items::*)(Items::size_type)>(&Items::resize);
    exactly<void (Items::*)(Items::size_type, const String&)>(&Items::resize);
}

void checkReferenceInterface()
{
    exactly<Logger* (LoggerRef::*)() const>(&LoggerRef::getPtr);
    exactly<Logger& (LoggerRef::*)() const>(&LoggerRef::operator*);
    exactly<Logger* (LoggerRef::*)() const>(&LoggerRef::operator->);
    exactly<bool (LoggerRef::*)() const>(&LoggerRef::operator!);
    exactly<bool (LoggerRef::*)() const>(&LoggerRef::isNull);
    exactly<void (LoggerRef::*)(LoggerRef&)>(&LoggerRef::swap);
    exactly<LoggerRef& (LoggerRef::*)(Logger*)>(&LoggerRef::operator=);
    exactly<LoggerRef& (LoggerRef::*)(LoggerRef const&)>(&LoggerRef::operator=);
}

void checkExceptionInterface()
{
    exactly<const char* (Exception::*)() const>(&Exception::type);
    exactly<const char* (Exception::*)() const>(&Exception::getMessage);
    exactly<const char* (Exception::*)() const>(&Exception::getFile);
    exactly<int (Exception::*)() const>(&Exception::getLine);
    exactly<int (Exception::*)() const>(&Exception::getErrorCode);
    exactly<int (Exception::*)() const>(&Exception::getSubClassId);
    exactly<const Exception* (Exception::*)() const>(&Exception::getSubException);
    exactly<const char* (Exception::*)() const>(&Exception::what);
    exactly<Exception* (Exception::*)() const>(&Exception::clone);
    exactly<CIMException::ErrNoType (CIMException::*)() const>(&CIMException::getErrNo);
    exactly<void (CIMException::*)(CIMException::ErrNoType)>(&CIMException::setErrNo);
    exactly<const char* (CIMException::*)() const>(&CIMException::getMessage);
    exactly<const char* (CIMException::*)() const>(&CIMException::type);
    exactly<CIMException* (CIMException::*)() const>(&CIMException::clone);
    exactly<void (CIMException::*)(CIMException&)>(&CIMException::swap);
}

void checkLoggerInterface()
{
    exactly<void (Logger::*)(const String&, const char*, int, const char*) const>(&Logger::logFatalError);
    exactly<void (Logger::*)(const String&, const char*, int, const char*) const>(&Logger::logError);
    exactly<void (Logger::*)(const String&, const char*, int, const char*) const>(&Logger::logInfo);
    exactly<void (Logger::*)(const String&, const char*, int, const char*) const>(&Logger::logDebug);
    exactly<ELogLevel (Logger::*)() const>(&Logger::getLogLevel);
    exactly<void (Logger::*)(ELogLevel)>(&Logger::setLogLevel);
    exactly<void (Logger::*)(const String&)>(&Logger::setLogLevel);
    exactly<void (OperationContext::*)(const String&, const String&)>(&OperationContext::setStringData);
    exactly<String (OperationContext::*)(const String&) const>(&OperationContext::getStringData);
    exactly<String (OperationContext::*)(const String&, const String&) const>(
        &OperationContext::getStringDataWithDefault);
    exactly<bool (OperationContext::*)(const String&) const>(&OperationContext::keyHasData);
}
