#ifndef OW_CIM_DATA_TYPE_HPP_
#define OW_CIM_DATA_TYPE_HPP_

#include "OW_CIMBase.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"
#include "OW_Types.hpp"

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
    bool isNumericType() const
    {
        return isNumericType(getType());
    } // integers and reals, and arrays of them
    static bool isNumericType(Type type);
    bool isReferenceType() const;
    Int32 getSize() const;           // of an array, -1 for any size; 1 for others
    bool setToArrayType(Int32 size); // always true
    String getRefClassName() const;
    bool equals(const CIMDataType& arg) const; // type, and whether it is an array, of any size or of one
    virtual String toString() const;           // of arrays the element type only
    virtual String toMOF() const;
    String getArrayMOF() const; // what follows the name in a declaration: nothing, [] or [3]

    static CIMDataType getDataType(const String& name); // in any case; type CIMNULL when unknown
    static Type strToSimpleType(const String& name);

    OW_SAFE_BOOL(hasType())

  private:
    struct Data;
    bool hasType() const;

    COWReference<Data> m_data;
};

bool operator==(const CIMDataType& lhs,
                const CIMDataType& rhs); // also the array size and the class referred to
bool operator!=(const CIMDataType& lhs, const CIMDataType& rhs);
bool operator<(const CIMDataType& lhs, const CIMDataType& rhs);
bool operator<=(const CIMDataType& lhs, const CIMDataType& rhs);

} // namespace OpenWBEM

#endif
