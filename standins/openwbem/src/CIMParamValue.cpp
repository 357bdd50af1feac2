#include "COWData.hpp"
#include "OW_CIM.hpp"

namespace OpenWBEM
{

struct CIMParamValue::Data : COWData<CIMParamValue::Data> {
    CIMName name;
    CIMValue value = CIMValue(CIMNULL);
};

CIMParamValue::CIMParamValue() : m_data(new Data) {}

CIMParamValue::CIMParamValue(CIMNULL_t) {}

CIMParamValue::CIMParamValue(const CIMName& name) : m_data(new Data)
{
    m_data.write().name = name;
}

CIMParamValue::CIMParamValue(const CIMName& name, const CIMValue& value) : CIMParamValue(name)
{
    m_data.write().value = value;
}

void CIMParamValue::setNull()
{
    m_data.setNull();
}

String CIMParamValue::getName() const
{
    return m_data.read().name.toString();
}

CIMParamValue& CIMParamValue::setName(const CIMName& name)
{
    m_data.write().name = name;
    return *this;
}

CIMValue CIMParamValue::getValue() const
{
    return m_data.read().value;
}

CIMParamValue& CIMParamValue::setValue(const CIMValue& value)
{
    m_data.write().value = value;
    return *this;
}

String CIMParamValue::toString() const
{
    return "CIMParamValue(" + getName() + "): " + getValue().toString();
}

String CIMParamValue::toMOF() const
{
    return "ERROR: CIMParamValue cannot be converted to MOF";
}

} // namespace OpenWBEM
