#include "COWData.hpp"
#include "OW_CIMDataType.hpp"

namespace OpenWBEM
{

namespace
{

struct TypeName {
    CIMDataType::Type type;
    const char* name;
};

const TypeName TYPE_NAMES[] = {
    {CIMDataType::UINT8, "uint8"},   {CIMDataType::SINT8, "sint8"},       {CIMDataType::UINT16, "uint16"},
    {CIMDataType::SINT16, "sint16"}, {CIMDataType::UINT32, "uint32"},     {CIMDataType::SINT32, "sint32"},
    {CIMDataType::UINT64, "uint64"}, {CIMDataType::SINT64, "sint64"},     {CIMDataType::STRING, "string"},
    {CIMDataType::REAL32, "real32"}, {CIMDataType::BOOLEAN, "boolean"},   {CIMDataType::REAL64, "real64"},
    {CIMDataType::CHAR16, "char16"}, {CIMDataType::DATETIME, "datetime"}, {CIMDataType::REFERENCE, "REF"},
};

const Int32 UNLIMITED = -1;

} // namespace

struct CIMDataType::Data : COWData<Data> {
    explicit Data(Type t) : type(t) {}

    Type type;
    bool isArray = false;
    Int32 size = 1;
    CIMName refClassName;
};

CIMDataType::CIMDataType() : m_data(new Data(CIMNULL))
{
    m_data.write().size = 0;
}

CIMDataType::CIMDataType(CIMNULL_t) {}

CIMDataType::CIMDataType(Type type) : m_data(new Data(type)) {}

CIMDataType::CIMDataType(Type type, Int32 arraySize) : m_data(new Data(type))
{
    setToArrayType(arraySize);
}

CIMDataType::CIMDataType(const CIMName& refClassName) : m_data(new Data(REFERENCE))
{
    m_data.write().refClassName = refClassName;
}

void CIMDataType::setNull()
{
    m_data.setNull();
}

bool CIMDataType::hasType() const
{
    return !m_data.isNull() && getType() != CIMNULL && getType() != INVALID;
}

CIMDataType::Type CIMDataType::getType() const
{
    return m_data.read().type;
}

bool CIMDataType::isArrayType() const
{
    return m_data.read().isArray;
}

bool CIMDataType::isNumericType(Type type)
{
    return (type >= UINT8 && type <= SINT64) || type == REAL32 || type == REAL64;
}

bool CIMDataType::isReferenceType() const
{
    return getType() == REFERENCE;
}

Int32 CIMDataType::getSize() const
{
    return m_data.read().size;
}

bool CIMDataType::setToArrayType(Int32 size)
{
    Data& data = m_data.write();
    data.isArray = true;
    data.size = size < 1 ? UNLIMITED : size;
    return true;
}

String CIMDataType::getRefClassName() const
{
    return m_data.read().refClassName.toString();
}

bool CIMDataType::equals(const CIMDataType& arg) const
{
    const Data& mine = m_data.read();
    const Data& others = arg.m_data.read();
    return mine.type == others.type && mine.isArray == others.isArray &&
           (mine.size == UNLIMITED) == (others.size == UNLIMITED);
}

bool operator==(const CIMDataType& lhs, const CIMDataType& rhs)
{
    return lhs.equals(rhs) && lhs.getSize() == rhs.getSize() &&
           CIMName(lhs.getRefClassName()) == rhs.getRefClassName();
}

bool operator!=(const CIMDataType& lhs, const CIMDataType& rhs)
{
    return !(lhs == rhs);
}

String CIMDataType::toString() const
{
    for (const TypeName& entry : TYPE_NAMES) {
        if (entry.type == getType()) {
            return entry.name;
        }
    }
    if (getType() == EMBEDDEDCLASS || getType() == EMBEDDEDINSTANCE) {
        return "string";
    }
    return "** INVALID DATA TYPE IN CIMDATATYPE - toString **";
}

String CIMDataType::toMOF() const
{
    return isReferenceType() ? getRefClassName() + " " + toString() : toString();
}

String CIMDataType::getArrayMOF() const
{
    if (!isArrayType()) {
        return "";
    }
    return getSize() == UNLIMITED ? String("[]") : "[" + String(getSize()) + "]";
}

CIMDataType CIMDataType::getDataType(const String& name)
{
    const Type type = strToSimpleType(name);
    return CIMDataType(type == INVALID ? CIMNULL : type);
}

CIMDataType::Type CIMDataType::strToSimpleType(const String& name)
{
    for (const TypeName& entry : TYPE_NAMES) {
        if (name.equalsIgnoreCase(entry.name)) {
            return entry.type;
        }
    }
    return name.equalsIgnoreCase("reference") ? REFERENCE : INVALID;
}

} // namespace OpenWBEM
