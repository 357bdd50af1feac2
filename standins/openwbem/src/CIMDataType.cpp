#include "COWData.hpp"
#include "OW_CIMDataType.hpp"
#include <iterator>
#include <vector>

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
    Int32 size = 0;
    CIMName refClassName;
};

// What all types that are no arrays and refer to no class share.
COWReference<CIMDataType::Data> CIMDataType::plain(Type type)
{
    static const std::vector<COWReference<Data>> all = [] {
        std::vector<COWReference<Data>> made;
        for (int each = CIMNULL; each < MAXDATATYPE; ++each) {
            made.emplace_back(new Data(static_cast<Type>(each)));
        }
        return made;
    }();
    return type >= CIMNULL && type < MAXDATATYPE ? all[type] : COWReference<Data>(new Data(type));
}

CIMDataType::CIMDataType() : m_data(plain(CIMNULL)) {}

CIMDataType::CIMDataType(CIMNULL_t) {}

CIMDataType::CIMDataType(Type type) : m_data(plain(type)) {}

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

bool CIMDataType::isNumericType() const
{
    const Type type = getType();
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
    if (!hasType()) {
        return false;
    }
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
    if (m_data.isNull() || arg.m_data.isNull()) {
        return m_data.isNull() && arg.m_data.isNull();
    }
    const Data& mine = m_data.read();
    const Data& others = arg.m_data.read();
    return mine.type == others.type && mine.isArray == others.isArray &&
           mine.refClassName == others.refClassName;
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
    const String refClassName = getRefClassName();
    return refClassName.empty() ? toString() : refClassName + " " + toString();
}

CIMDataType CIMDataType::getDataType(const String& name)
{
    return CIMDataType(strToSimpleType(name));
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
