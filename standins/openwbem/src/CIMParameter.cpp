#include "COWData.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIM.hpp"

namespace OpenWBEM
{

struct CIMParameter::Data : COWData<CIMParameter::Data> {
    CIMName name;
    CIMDataType dataType;
    CIMQualifierArray qualifiers;
};

CIMParameter::CIMParameter() : m_data(new Data) {}

CIMParameter::CIMParameter(CIMNULL_t) {}

CIMParameter::CIMParameter(const CIMName& name) : m_data(new Data)
{
    m_data.write().name = name;
}

void CIMParameter::setNull()
{
    m_data.setNull();
}

String CIMParameter::getName() const
{
    return m_data.read().name.toString();
}

void CIMParameter::setName(const CIMName& name)
{
    m_data.write().name = name;
}

CIMDataType CIMParameter::getType() const
{
    return m_data.read().dataType;
}

CIMParameter& CIMParameter::setDataType(const CIMDataType& dataType)
{
    m_data.write().dataType = dataType;
    return *this;
}

CIMQualifierArray CIMParameter::getQualifiers() const
{
    return m_data.read().qualifiers;
}

CIMParameter& CIMParameter::setQualifiers(const CIMQualifierArray& qualifiers)
{
    m_data.write().qualifiers = qualifiers;
    return *this;
}

CIMQualifier CIMParameter::getQualifier(const CIMName& name) const
{
    return findElement(m_data.read().qualifiers, name);
}

String CIMParameter::toString() const
{
    return "CIMParameter(" + getName() + ")";
}

String CIMParameter::toMOF() const
{
    const Data& data = m_data.read();
    return qualifiersMOF(data.qualifiers, ",") + declarationMOF(data.dataType, getName());
}

} // namespace OpenWBEM
