#ifndef OW_CIM_VALUE_HPP_
#define OW_CIM_VALUE_HPP_

#include "OW_Array.hpp"
#include "OW_CIMBase.hpp"
#include "OW_CIMDataType.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"

namespace OpenWBEM
{

// A value of one of the CIM types, or an array of them. Nothing converts: a value of another type throws
// ValueCastException, but a scalar sint64 serves as any number, because that is how numeric keys arrive from
// a client. Values are equal when type and content are.
class CIMValue : public CIMBase
{
  public:
    explicit CIMValue(CIMNULL_t);
    explicit CIMValue(bool arg);
    explicit CIMValue(const char* arg);               // a null pointer gives an empty string
    explicit CIMValue(const volatile void*) = delete; // other pointers would become booleans

    explicit CIMValue(const Bool& arg);
    explicit CIMValue(UInt8 arg);
    explicit CIMValue(Int8 arg);
    explicit CIMValue(UInt16 arg);
    explicit CIMValue(Int16 arg);
    explicit CIMValue(UInt32 arg);
    explicit CIMValue(Int32 arg);
    explicit CIMValue(UInt64 arg);
    explicit CIMValue(Int64 arg);
    explicit CIMValue(Real32 arg);
    explicit CIMValue(Real64 arg);
    explicit CIMValue(const Char16& arg);
    explicit CIMValue(const String& arg);
    explicit CIMValue(const CIMDateTime& arg);
    explicit CIMValue(const CIMObjectPath& arg);
    explicit CIMValue(const CIMClass& arg);
    explicit CIMValue(const CIMInstance& arg);
    explicit CIMValue(const BoolArray& arg);
    explicit CIMValue(const UInt8Array& arg);
    explicit CIMValue(const Int8Array& arg);
    explicit CIMValue(const UInt16Array& arg);
    explicit CIMValue(const Int16Array& arg);
    explicit CIMValue(const UInt32Array& arg);
    explicit CIMValue(const Int32Array& arg);
    explicit CIMValue(const UInt64Array& arg);
    explicit CIMValue(const Int64Array& arg);
    explicit CIMValue(const Real32Array& arg);
    explicit CIMValue(const Real64Array& arg);
    explicit CIMValue(const Char16Array& arg);
    explicit CIMValue(const StringArray& arg);
    explicit CIMValue(const CIMDateTimeArray& arg);
    explicit CIMValue(const CIMObjectPathArray& arg);
    explicit CIMValue(const CIMClassArray& arg);
    explicit CIMValue(const CIMInstanceArray& arg);

    void get(Bool& arg) const;
    void get(UInt8& arg) const;
    void get(Int8& arg) const;
    void get(UInt16& arg) const;
    void get(Int16& arg) const;
    void get(UInt32& arg) const;
    void get(Int32& arg) const;
    void get(UInt64& arg) const;
    void get(Int64& arg) const;
    void get(Real32& arg) const;
    void get(Real64& arg) const;
    void get(Char16& arg) const;
    void get(String& arg) const;
    void get(CIMDateTime& arg) const;
    void get(CIMObjectPath& arg) const;
    void get(CIMClass& arg) const;
    void get(CIMInstance& arg) const;
    void get(BoolArray& arg) const;
    void get(UInt8Array& arg) const;
    void get(Int8Array& arg) const;
    void get(UInt16Array& arg) const;
    void get(Int16Array& arg) const;
    void get(UInt32Array& arg) const;
    void get(Int32Array& arg) const;
    void get(UInt64Array& arg) const;
    void get(Int64Array& arg) const;
    void get(Real32Array& arg) const;
    void get(Real64Array& arg) const;
    void get(Char16Array& arg) const;
    void get(StringArray& arg) const;
    void get(CIMDateTimeArray& arg) const;
    void get(CIMObjectPathArray& arg) const;
    void get(CIMClassArray& arg) const;
    void get(CIMInstanceArray& arg) const;

    Bool toBool() const;
    UInt8 toUInt8() const;
    Int8 toInt8() const;
    UInt16 toUInt16() const;
    Int16 toInt16() const;
    UInt32 toUInt32() const;
    Int32 toInt32() const;
    UInt64 toUInt64() const;
    Int64 toInt64() const;
    Real32 toReal32() const;
    Real64 toReal64() const;
    Char16 toChar16() const;
    virtual String toString() const; // a rendering of any type; (null) when null
    CIMDateTime toCIMDateTime() const;
    CIMObjectPath toCIMObjectPath() const;
    CIMClass toCIMClass() const;
    CIMInstance toCIMInstance() const;
    BoolArray toBoolArray() const;
    UInt8Array toUInt8Array() const;
    Int8Array toInt8Array() const;
    UInt16Array toUInt16Array() const;
    Int16Array toInt16Array() const;
    UInt32Array toUInt32Array() const;
    Int32Array toInt32Array() const;
    UInt64Array toUInt64Array() const;
    Int64Array toInt64Array() const;
    Real32Array toReal32Array() const;
    Real64Array toReal64Array() const;
    Char16Array toChar16Array() const;
    StringArray toStringArray() const;
    CIMDateTimeArray toCIMDateTimeArray() const;
    CIMObjectPathArray toCIMObjectPathArray() const;
    CIMClassArray toCIMClassArray() const;
    CIMInstanceArray toCIMInstanceArray() const;

    virtual String toMOF() const;
    virtual void setNull();
    CIMValue& set(const CIMValue& arg) { return *this = arg; }
    CIMDataType::Type getType() const;
    CIMDataType getCIMDataType() const;
    bool isArray() const;
    UInt32 getArraySize() const; // 1 for a scalar
    bool isNumericType() const;
    bool sameType(const CIMValue& arg) const;
    bool equal(const CIMValue& arg) const;
    // Null is less than anything; of values of different types neither is less.
    bool operator==(const CIMValue& arg) const { return equal(arg); }
    bool operator!=(const CIMValue& arg) const { return !equal(arg); }
    bool operator<(const CIMValue& arg) const;
    bool operator>(const CIMValue& arg) const { return arg < *this; }
    bool operator<=(const CIMValue& arg) const { return !(arg < *this); }
    bool operator>=(const CIMValue& arg) const { return !(*this < arg); }

    // The value that text stands for in the named CIM type; null when there is no such type.
    static CIMValue createSimpleValue(const String& cimType, const String& text);

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

} // namespace OpenWBEM

#endif
