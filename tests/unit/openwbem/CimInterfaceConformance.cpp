// The interface that the provider, the object managers and the tests are built against, member by member and
// type by type. The stand-in and an installed OpenWBEM of the late 3.0.3 headers must both satisfy this file;
// where it stops compiling, one of them differs. It uses nothing that only one of them has.
#include "OW_CIM.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_WBEMFlags.hpp"
#include <type_traits>

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

// A value is made of each CIM type and of arrays of it, and never silently.
template <class T>
constexpr bool holds =
    made<CIMValue, T>&& made<CIMValue, Array<T>> && !converts<T, CIMValue> && !converts<Array<T>, CIMValue>;
static_assert(holds<Bool> && holds<UInt8> && holds<Int8> && holds<UInt16> && holds<Int16> && holds<UInt32>,
              "values");
static_assert(holds<Int32> && holds<UInt64> && holds<Int64> && holds<Real32> && holds<Real64> &&
                  holds<Char16>,
              "values");
static_assert(holds<String> && holds<CIMDateTime> && holds<CIMObjectPath> && holds<CIMClass> &&
                  holds<CIMInstance>,
              "values");
static_assert(made<CIMValue, bool> && made<CIMValue, const char*> && made<CIMValue, CIMNULL_t>, "values");
static_assert(!made<CIMValue> && !converts<const char*, CIMValue> && !converts<CIMNULL_t, CIMValue>,
              "explicit");
static_assert(!made<CIMValue, int*> && !made<CIMValue, const CIMInstance*>, "pointers are no values");

static_assert(converts<const char*, CIMName> && converts<String, CIMName> && !converts<CIMName, String>,
              "names");
static_assert(converts<CIMDataType::Type, CIMDataType> && made<CIMDataType, CIMDataType::Type, Int32> &&
                  made<CIMDataType, CIMNULL_t> && !converts<CIMNULL_t, CIMDataType> &&
                  made<CIMDataType, CIMName> && !converts<CIMName, CIMDataType>,
              "data types");
static_assert(made<CIMProperty> && made<CIMProperty, CIMNULL_t> && !converts<CIMNULL_t, CIMProperty> &&
                  made<CIMProperty, const char*> && !converts<const char*, CIMProperty> &&
                  made<CIMProperty, String> && made<CIMProperty, const char*, CIMValue> &&
                  made<CIMProperty, const char*, CIMDataType> && !made<CIMProperty, const char*, String>,
              "properties");
static_assert(made<CIMQualifier> && made<CIMQualifier, CIMNULL_t> && !converts<CIMNULL_t, CIMQualifier> &&
                  converts<const char*, CIMQualifier> && converts<CIMName, CIMQualifier> &&
                  !made<CIMQualifier, const char*, CIMValue>,
              "qualifiers");
static_assert(made<CIMInstance> && made<CIMInstance, CIMNULL_t> && !converts<CIMNULL_t, CIMInstance> &&
                  made<CIMInstance, const char*> && !converts<const char*, CIMInstance> &&
                  made<CIMInstance, String>,
              "instances");
static_assert(made<CIMObjectPath> && made<CIMObjectPath, CIMNULL_t> && !converts<CIMNULL_t, CIMObjectPath> &&
                  made<CIMObjectPath, const char*> && !converts<const char*, CIMObjectPath> &&
                  made<CIMObjectPath, String, String> && made<CIMObjectPath, const char*, const char*> &&
                  made<CIMObjectPath, String, CIMPropertyArray> && made<CIMObjectPath, String, CIMInstance>,
              "object paths");
static_assert(made<CIMParamValue> && made<CIMParamValue, CIMNULL_t> &&
                  made<CIMParamValue, const char*, CIMValue> && made<CIMParamValue, CIMName>,
              "parameters");
static_assert(made<CIMDateTime> && made<CIMDateTime, CIMNULL_t> && made<CIMDateTime, const char*> &&
                  made<CIMDateTime, String> && !converts<String, CIMDateTime> && made<CIMDateTime, UInt64> &&
                  converts<DateTime, CIMDateTime>,
              "dates");
static_assert(made<CIMClass> && made<CIMClass, CIMNULL_t> && made<CIMClass, const char*> &&
                  made<CIMClass, String> && !converts<const char*, CIMClass>,
              "classes");

template <class Base, class... Classes>
constexpr bool bears = (std::is_base_of<Base, Classes>::value && ...);
static_assert(bears<CIMElement, CIMProperty, CIMQualifier, CIMInstance, CIMClass>, "elements");
static_assert(bears<CIMBase, CIMElement, CIMValue, CIMObjectPath, CIMParamValue, CIMDataType>, "objects");
static_assert(!bears<CIMBase, CIMDateTime>, "a date is none of them");

// The truth test converts to bool and to no number.
template <class T>
constexpr bool tested = converts<T, bool> && !converts<T, int>;
static_assert(tested<CIMValue> && tested<CIMProperty> && tested<CIMQualifier> && tested<CIMInstance>,
              "truth");
static_assert(tested<CIMObjectPath> && tested<CIMParamValue> && tested<CIMDateTime> && tested<CIMClass>,
              "truth");
static_assert(tested<CIMDataType> && tested<CIMName>, "truth");

static_assert(std::is_same<CIMQualifierArray, Array<CIMQualifier>>::value, "array by name");
static_assert(std::is_same<CIMPropertyArray, Array<CIMProperty>>::value, "array by name");
static_assert(std::is_same<CIMInstanceArray, Array<CIMInstance>>::value, "array by name");
static_assert(std::is_same<CIMObjectPathArray, Array<CIMObjectPath>>::value, "array by name");
static_assert(std::is_same<CIMParamValueArray, Array<CIMParamValue>>::value, "array by name");

static_assert(CIMDataType::UINT8 == 1 && CIMDataType::SINT8 == 2 && CIMDataType::UINT16 == 3 &&
                  CIMDataType::SINT16 == 4 && CIMDataType::UINT32 == 5 && CIMDataType::SINT32 == 6 &&
                  CIMDataType::UINT64 == 7 && CIMDataType::SINT64 == 8 && CIMDataType::STRING == 9 &&
                  CIMDataType::BOOLEAN == 10 && CIMDataType::REAL32 == 11 && CIMDataType::REAL64 == 12 &&
                  CIMDataType::DATETIME == 13 && CIMDataType::CHAR16 == 14 && CIMDataType::REFERENCE == 15 &&
                  CIMDataType::EMBEDDEDCLASS == 16 && CIMDataType::EMBEDDEDINSTANCE == 17 &&
                  CIMDataType::MAXDATATYPE == 18 && CIMDataType::INVALID == 99 && CIMDataType::CIMNULL == 0,
              "numbers of the types");
static_assert(WBEMFlags::E_SHALLOW == 0 && WBEMFlags::E_DEEP == 1 && WBEMFlags::E_NOT_LOCAL_ONLY == 0 &&
                  WBEMFlags::E_LOCAL_ONLY == 1 && WBEMFlags::E_EXCLUDE_QUALIFIERS == 0 &&
                  WBEMFlags::E_INCLUDE_QUALIFIERS == 1 && WBEMFlags::E_EXCLUDE_CLASS_ORIGIN == 0 &&
                  WBEMFlags::E_INCLUDE_CLASS_ORIGIN == 1,
              "numbers of the flags");

} // namespace

void checkValueInterface()
{
    exactly<void (CIMValue::*)(Bool&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(BoolArray&) const>(&CIMValue::get);
    exactly<Bool (CIMValue::*)() const>(&CIMValue::toBool);
    exactly<BoolArray (CIMValue::*)() const>(&CIMValue::toBoolArray);
    exactly<void (CIMValue::*)(UInt8&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(UInt8Array&) const>(&CIMValue::get);
    exactly<UInt8 (CIMValue::*)() const>(&CIMValue::toUInt8);
    exactly<UInt8Array (CIMValue::*)() const>(&CIMValue::toUInt8Array);
    exactly<void (CIMValue::*)(Int8&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(Int8Array&) const>(&CIMValue::get);
    exactly<Int8 (CIMValue::*)() const>(&CIMValue::toInt8);
    exactly<Int8Array (CIMValue::*)() const>(&CIMValue::toInt8Array);
    exactly<void (CIMValue::*)(UInt16&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(UInt16Array&) const>(&CIMValue::get);
    exactly<UInt16 (CIMValue::*)() const>(&CIMValue::toUInt16);
    exactly<UInt16Array (CIMValue::*)() const>(&CIMValue::toUInt16Array);
    exactly<void (CIMValue::*)(Int16&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(Int16Array&) const>(&CIMValue::get);
    exactly<Int16 (CIMValue::*)() const>(&CIMValue::toInt16);
    exactly<Int16Array (CIMValue::*)() const>(&CIMValue::toInt16Array);
    exactly<void (CIMValue::*)(UInt32&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(UInt32Array&) const>(&CIMValue::get);
    exactly<UInt32 (CIMValue::*)() const>(&CIMValue::toUInt32);
    exactly<UInt32Array (CIMValue::*)() const>(&CIMValue::toUInt32Array);
    exactly<void (CIMValue::*)(Int32&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(Int32Array&) const>(&CIMValue::get);
    exactly<Int32 (CIMValue::*)() const>(&CIMValue::toInt32);
    exactly<Int32Array (CIMValue::*)() const>(&CIMValue::toInt32Array);
    exactly<void (CIMValue::*)(UInt64&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(UInt64Array&) const>(&CIMValue::get);
    exactly<UInt64 (CIMValue::*)() const>(&CIMValue::toUInt64);
    exactly<UInt64Array (CIMValue::*)() const>(&CIMValue::toUInt64Array);
    exactly<void (CIMValue::*)(Int64&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(Int64Array&) const>(&CIMValue::get);
    exactly<Int64 (CIMValue::*)() const>(&CIMValue::toInt64);
    exactly<Int64Array (CIMValue::*)() const>(&CIMValue::toInt64Array);
    exactly<void (CIMValue::*)(Real32&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(Real32Array&) const>(&CIMValue::get);
    exactly<Real32 (CIMValue::*)() const>(&CIMValue::toReal32);
    exactly<Real32Array (CIMValue::*)() const>(&CIMValue::toReal32Array);
    exactly<void (CIMValue::*)(Real64&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(Real64Array&) const>(&CIMValue::get);
    exactly<Real64 (CIMValue::*)() const>(&CIMValue::toReal64);
    exactly<Real64Array (CIMValue::*)() const>(&CIMValue::toReal64Array);
    exactly<void (CIMValue::*)(Char16&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(Char16Array&) const>(&CIMValue::get);
    exactly<Char16 (CIMValue::*)() const>(&CIMValue::toChar16);
    exactly<Char16Array (CIMValue::*)() const>(&CIMValue::toChar16Array);
    exactly<void (CIMValue::*)(String&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(StringArray&) const>(&CIMValue::get);
    exactly<String (CIMValue::*)() const>(&CIMValue::toString);
    exactly<StringArray (CIMValue::*)() const>(&CIMValue::toStringArray);
    exactly<void (CIMValue::*)(CIMDateTime&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(CIMDateTimeArray&) const>(&CIMValue::get);
    exactly<CIMDateTime (CIMValue::*)() const>(&CIMValue::toCIMDateTime);
    exactly<CIMDateTimeArray (CIMValue::*)() const>(&CIMValue::toCIMDateTimeArray);
    exactly<void (CIMValue::*)(CIMObjectPath&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(CIMObjectPathArray&) const>(&CIMValue::get);
    exactly<CIMObjectPath (CIMValue::*)() const>(&CIMValue::toCIMObjectPath);
    exactly<CIMObjectPathArray (CIMValue::*)() const>(&CIMValue::toCIMObjectPathArray);
    exactly<void (CIMValue::*)(CIMClass&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(CIMClassArray&) const>(&CIMValue::get);
    exactly<CIMClass (CIMValue::*)() const>(&CIMValue::toCIMClass);
    exactly<CIMClassArray (CIMValue::*)() const>(&CIMValue::toCIMClassArray);
    exactly<void (CIMValue::*)(CIMInstance&) const>(&CIMValue::get);
    exactly<void (CIMValue::*)(CIMInstanceArray&) const>(&CIMValue::get);
    exactly<CIMInstance (CIMValue::*)() const>(&CIMValue::toCIMInstance);
    exactly<CIMInstanceArray (CIMValue::*)() const>(&CIMValue::toCIMInstanceArray);
    exactly<String (CIMValue::*)() const>(&CIMValue::toMOF);
    exactly<void (CIMValue::*)()>(&CIMValue::setNull);
    exactly<CIMDataType::Type (CIMValue::*)() const>(&CIMValue::getType);
    exactly<CIMDataType (CIMValue::*)() const>(&CIMValue::getCIMDataType);
    exactly<bool (CIMValue::*)() const>(&CIMValue::isArray);
    exactly<UInt32 (CIMValue::*)() const>(&CIMValue::getArraySize);
    exactly<bool (CIMValue::*)(const CIMValue&) const>(&CIMValue::sameType);
    exactly<bool (CIMValue::*)() const>(&CIMValue::isNumericType);
    exactly<bool (CIMValue::*)(const CIMValue&) const>(&CIMValue::equal);
    exactly<CIMValue (*)(const String&, const String&)>(&CIMValue::createSimpleValue);
    exactly<CIMValue (*)(const CIMValue&, const CIMDataType&)>(&CIMValueCast::castValueToDataType);
}

void checkDataTypeInterface()
{
    exactly<CIMDataType::Type (CIMDataType::*)() const>(&CIMDataType::getType);
    exactly<bool (CIMDataType::*)() const>(&CIMDataType::isArrayType);
    exactly<bool (CIMDataType::*)() const>(&CIMDataType::isNumericType);
    exactly<bool (CIMDataType::*)() const>(&CIMDataType::isReferenceType);
    exactly<Int32 (CIMDataType::*)() const>(&CIMDataType::getSize);
    exactly<bool (CIMDataType::*)(Int32)>(&CIMDataType::setToArrayType);
    exactly<String (CIMDataType::*)() const>(&CIMDataType::getRefClassName);
    exactly<bool (CIMDataType::*)(const CIMDataType&) const>(&CIMDataType::equals);
    exactly<String (CIMDataType::*)() const>(&CIMDataType::toString);
    exactly<CIMDataType (*)(const String&)>(&CIMDataType::getDataType);
    exactly<CIMDataType::Type (*)(const String&)>(&CIMDataType::strToSimpleType);
    exactly<String (CIMName::*)() const>(&CIMName::toString);
}

void checkDateTimeInterface()
{
    exactly<bool (CIMDateTime::*)() const>(&CIMDateTime::isInterval);
    exactly<void (CIMDateTime::*)(bool)>(&CIMDateTime::setInterval);
    exactly<bool (CIMDateTime::*)(const CIMDateTime&) const>(&CIMDateTime::equal);
    exactly<String (CIMDateTime::*)() const>(&CIMDateTime::toString);
}

void checkPropertyInterface()
{
    exactly<String (CIMProperty::*)() const>(&CIMProperty::getName);
    exactly<void (CIMProperty::*)(const CIMName&)>(&CIMProperty::setName);
    exactly<CIMValue (CIMProperty::*)() const>(&CIMProperty::getValue);
    exactly<CIMValue (CIMProperty::*)() const>(&CIMProperty::getValueT);
    exactly<CIMProperty& (CIMProperty::*)(const CIMValue&)>(&CIMProperty::setValue);
    exactly<CIMDataType (CIMProperty::*)() const>(&CIMProperty::getDataType);
    exactly<CIMProperty& (CIMProperty::*)(const CIMDataType&)>(&CIMProperty::setDataType);
    exactly<CIMProperty& (CIMProperty::*)(const CIMDataType::Type&)>(&CIMProperty::setDataType);
    exactly<CIMQualifierArray (CIMProperty::*)() const>(&CIMProperty::getQualifiers);
    exactly<CIMProperty& (CIMProperty::*)(const CIMQualifierArray&)>(&CIMProperty::setQualifiers);
    exactly<CIMQualifier (CIMProperty::*)(const CIMName&) const>(&CIMProperty::getQualifier);
    exactly<CIMQualifier (CIMProperty::*)(const CIMName&) const>(&CIMProperty::getQualifierT);
    exactly<CIMProperty& (CIMProperty::*)(const CIMQualifier&)>(&CIMProperty::setQualifier);
    exactly<CIMProperty& (CIMProperty::*)(const CIMQualifier&)>(&CIMProperty::addQualifier);
    exactly<bool (CIMProperty::*)(const CIMName&)>(&CIMProperty::removeQualifier);
    exactly<CIMProperty& (CIMProperty::*)()>(&CIMProperty::clearQualifiers);
    exactly<CIMProperty& (CIMProperty::*)()>(&CIMProperty::clearNonKeyQualifiers);
    exactly<bool (CIMProperty::*)(const CIMName&) const>(&CIMProperty::hasTrueQualifier);
    exactly<bool (CIMProperty::*)() const>(&CIMProperty::isKey);
    exactly<bool (CIMProperty::*)() const>(&CIMProperty::isReference);
    exactly<String (CIMProperty::*)() const>(&CIMProperty::getOriginClass);
    exactly<CIMProperty& (CIMProperty::*)(const CIMName&)>(&CIMProperty::setOriginClass);
    exactly<bool (CIMProperty::*)() const>(&CIMProperty::getPropagated);
    exactly<CIMProperty& (CIMProperty::*)(bool)>(&CIMProperty::setPropagated);
    exactly<Int32 (CIMProperty::*)() const>(&CIMProperty::getSize);
    exactly<void (CIMProperty::*)()>(&CIMProperty::setNull);
    exactly<String (CIMProperty::*)() const>(&CIMProperty::toString);
    exactly<String (CIMProperty::*)() const>(&CIMProperty::toMOF);
}

void checkQualifierInterface()
{
    exactly<CIMValue (CIMQualifier::*)() const>(&CIMQualifier::getValue);
    exactly<CIMValue (CIMQualifier::*)() const>(&CIMQualifier::getValueT);
    exactly<CIMQualifier& (CIMQualifier::*)(const CIMValue&)>(&CIMQualifier::setValue);
    exactly<bool (CIMQualifier::*)() const>(&CIMQualifier::hasValue);
    exactly<String (CIMQualifier::*)() const>(&CIMQualifier::getName);
    exactly<void (CIMQualifier::*)(const CIMName&)>(&CIMQualifier::setName);
    exactly<bool (CIMQualifier::*)(const CIMQualifier&) const>(&CIMQualifier::equals);
    exactly<bool (CIMQualifier::*)() const>(&CIMQualifier::isKeyQualifier);
    exactly<CIMFlavorArray (CIMQualifier::*)() const>(&CIMQualifier::getFlavor);
    exactly<bool (CIMQualifier::*)() const>(&CIMQualifier::getPropagated);
    exactly<CIMQualifier& (CIMQualifier::*)(bool)>(&CIMQualifier::setPropagated);
    exactly<CIMQualifier (*)()>(&CIMQualifier::createKeyQualifier);
    exactly<const char* const*>(&CIMQualifier::CIM_QUAL_KEY);
}

void checkInstanceInterface()
{
    exactly<String (CIMInstance::*)() const>(&CIMInstance::getClassName);
    exactly<CIMInstance& (CIMInstance::*)(const CIMName&)>(&CIMInstance::setClassName);
    exactly<String (CIMInstance::*)() const>(&CIMInstance::getName);
    exactly<void (CIMInstance::*)(const CIMName&)>(&CIMInstance::setName);
    exactly<CIMPropertyArray (CIMInstance::*)(Int32) const>(&CIMInstance::getProperties);
    exactly<CIMInstance& (CIMInstance::*)(const CIMPropertyArray&)>(&CIMInstance::setProperties);
    exactly<CIMProperty (CIMInstance::*)(const CIMName&) const>(&CIMInstance::getProperty);
    exactly<CIMProperty (CIMInstance::*)(const CIMName&, const CIMName&) const>(&CIMInstance::getProperty);
    exactly<CIMProperty (CIMInstance::*)(const CIMName&) const>(&CIMInstance::getPropertyT);
    exactly<CIMValue (CIMInstance::*)(const CIMName&) const>(&CIMInstance::getPropertyValue);
    exactly<bool (CIMInstance::*)(const CIMName&) const>(&CIMInstance::propertyHasValue);
    exactly<CIMInstance& (CIMInstance::*)(const CIMName&, const CIMValue&)>(&CIMInstance::setProperty);
    exactly<CIMInstance& (CIMInstance::*)(const CIMProperty&)>(&CIMInstance::setProperty);
    exactly<CIMInstance& (CIMInstance::*)(const CIMName&)>(&CIMInstance::removeProperty);
    exactly<CIMInstance& (CIMInstance::*)(const CIMProperty&)>(&CIMInstance::updatePropertyValue);
    exactly<CIMInstance& (CIMInstance::*)(const CIMPropertyArray&)>(&CIMInstance::updatePropertyValues);
    exactly<CIMPropertyArray (CIMInstance::*)() const>(&CIMInstance::getKeyValuePairs);
    exactly<CIMInstance& (CIMInstance::*)(const CIMPropertyArray&)>(&CIMInstance::setKeys);
    exactly<CIMQualifierArray (CIMInstance::*)() const>(&CIMInstance::getQualifiers);
    exactly<CIMQualifier (CIMInstance::*)(const CIMName&) const>(&CIMInstance::getQualifier);
    exactly<CIMInstance& (CIMInstance::*)(const CIMQualifierArray&)>(&CIMInstance::setQualifiers);
    exactly<CIMInstance& (CIMInstance::*)(const CIMQualifier&)>(&CIMInstance::setQualifier);
    exactly<CIMInstance& (CIMInstance::*)(const CIMName&)>(&CIMInstance::removeQualifier);
    exactly<CIMInstance (CIMInstance::*)(WBEMFlags::ELocalOnlyFlag, WBEMFlags::EIncludeQualifiersFlag,
                                         WBEMFlags::EIncludeClassOriginFlag, const StringArray*) const>(
        &CIMInstance::clone);
    exactly<CIMInstance (CIMInstance::*)(const StringArray&, WBEMFlags::EIncludeQualifiersFlag,
                                         WBEMFlags::EIncludeClassOriginFlag, bool) const>(
        &CIMInstance::filterProperties);
    exactly<CIMInstance& (CIMInstance::*)(const CIMClass&, WBEMFlags::EIncludeQualifiersFlag)>(
        &CIMInstance::syncWithClass);
    exactly<CIMInstance (CIMInstance::*)(const CIMInstance&, WBEMFlags::EIncludeQualifiersFlag,
                                         const StringArray*, const CIMClass&) const>(
        &CIMInstance::createModifiedInstance);
    exactly<String (CIMInstance::*)() const>(&CIMInstance::getLanguage);
    exactly<void (CIMInstance::*)(const String&)>(&CIMInstance::setLanguage);
    exactly<bool (CIMInstance::*)(const CIMInstance&) const>(&CIMInstance::propertiesAreEqualTo);
    exactly<String (CIMInstance::*)() const>(&CIMInstance::toString);
    exactly<String (CIMInstance::*)() const>(&CIMInstance::toMOF);
}

void checkObjectPathInterface()
{
    exactly<CIMPropertyArray (CIMObjectPath::*)() const>(&CIMObjectPath::getKeys);
    exactly<CIMProperty (CIMObjectPath::*)(const CIMName&) const>(&CIMObjectPath::getKey);
    exactly<CIMProperty (CIMObjectPath::*)(const CIMName&) const>(&CIMObjectPath::getKeyT);
    exactly<CIMValue (CIMObjectPath::*)(const CIMName&) const>(&CIMObjectPath::getKeyValue);
    exactly<bool (CIMObjectPath::*)(const CIMName&) const>(&CIMObjectPath::keyHasValue);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMPropertyArray&)>(&CIMObjectPath::setKeys);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMInstance&)>(&CIMObjectPath::setKeys);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMName&, const CIMValue&)>(&CIMObjectPath::setKeyValue);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMName&, const CIMValue&)>(&CIMObjectPath::addKey);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMProperty&)>(&CIMObjectPath::addKey);
    exactly<String (CIMObjectPath::*)() const>(&CIMObjectPath::getClassName);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMName&)>(&CIMObjectPath::setClassName);
    exactly<String (CIMObjectPath::*)() const>(&CIMObjectPath::getObjectName);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMName&)>(&CIMObjectPath::setObjectName);
    exactly<String (CIMObjectPath::*)() const>(&CIMObjectPath::getNameSpace);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const String&)>(&CIMObjectPath::setNameSpace);
    exactly<String (CIMObjectPath::*)() const>(&CIMObjectPath::getHost);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const String&)>(&CIMObjectPath::setHost);
    exactly<bool (CIMObjectPath::*)() const>(&CIMObjectPath::isClassPath);
    exactly<bool (CIMObjectPath::*)() const>(&CIMObjectPath::isInstancePath);
    exactly<bool (CIMObjectPath::*)(const CIMObjectPath&) const>(&CIMObjectPath::equals);
    exactly<String (CIMObjectPath::*)() const>(&CIMObjectPath::toString);
    exactly<String (CIMObjectPath::*)() const>(&CIMObjectPath::modelPath);
    exactly<CIMObjectPath& (CIMObjectPath::*)(const CIMClass&)>(&CIMObjectPath::syncWithClass);
    exactly<CIMObjectPath (*)(const String&)>(&CIMObjectPath::parse);
    exactly<String (*)(const String&)>(&CIMObjectPath::escape);
    exactly<String (*)(const String&)>(&CIMObjectPath::unEscape);
}

void checkParameterAndClassInterface()
{
    exactly<String (CIMParamValue::*)() const>(&CIMParamValue::getName);
    exactly<CIMValue (CIMParamValue::*)() const>(&CIMParamValue::getValue);
    exactly<String (CIMClass::*)() const>(&CIMClass::getName);
    exactly<CIMInstance (CIMClass::*)() const>(&CIMClass::newInstance);
    exactly<CIMProperty (CIMClass::*)(const CIMName&) const>(&CIMClass::getProperty);
    exactly<CIMQualifier (CIMClass::*)(const CIMName&) const>(&CIMClass::getQualifier);
}
