#ifndef OW_CIM_DATA_TYPE_HPP_
#define OW_CIM_DATA_TYPE_HPP_

#include "OW_CIMBase.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"

namespace OpenWBEM
{

// The type of a CIM value: a simple type, whether it is an array of it and, for references, the class
// referred to.
class CIMDataType : public CIMBase
{
  public:
// CIMNULL is a type here and the null constructor's argument outside: both names are part of the interface.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
    enum Type {
        CIMNULL = 0,
        UINT8 = 1,
        SINT8 = 2,
        UINT16 = 3,
        SINT16 = 4,
        UINT32 = 5,
        SINT32 = 6,
        UINT64 = 7,
        SINT64 = 8,
        STRING = 9,
        BOOLEAN = 10,
        REAL32 = 11,
        REAL64 = 12,
        DATETIME = 13,
        CHAR16 = 14,
        REFERENCE = 15,
        EMBEDDEDCLASS = 16,
        EMBEDDEDINSTANCE = 17,
        MAXDATATYPE = 18,
        INVALID = 99
    };
#pragma GCC diagnostic pop

    CIMDataType(); // of type CIMNULL, not null
    explicit CIMDataType(CIMNULL_t);
    CIMDataType(Type type);
    CIMDataType(Type type, Int32 arraySize); // -1: an array of any size
    explicit CIMDataType(const CIMName& refClassName);

    virtual void setNull();
    Type getType() const;
    bool isArrayType() const;
    bool isNumericType() const; // integers and reals, and arrays of them
    bool isReferenceType() const;
    Int32 getSize() const;
    bool setToArrayType(Int32 size); // false for types that have no arrays
    String getRefClassName() const;
    bool equals(const CIMDataType& arg) const;
    virtual String toString() const; // of arrays the element type only
    virtual String toMOF() const;

    static CIMDataType getDataType(const String& name); // in any case; type INVALID when unknown
    static Type strToSimpleType(const String& name);

    OW_SAFE_BOOL(hasType())

  private:
    struct Data;
    bool hasType() const;
    static COWReference<Data> plain(Type type);

    COWReference<Data> m_data;
};

inline bool operator==(const CIMDataType& lhs, const CIMDataType& rhs)
{
    return lhs.equals(rhs);
}
inline bool operator!=(const CIMDataType& lhs, const CIMDataType& rhs)
{
    return !lhs.equals(rhs);
}

} // namespace OpenWBEM

#endif
