#include "COWData.hpp"
#include "Flavors.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIM.hpp"
#include "OW_CIMValueCast.hpp"

namespace OpenWBEM
{

struct CIMQualifierType::Data : COWData<CIMQualifierType::Data> {
    Data()
    {
        addFlavorTo(flavors, CIMFlavor::ENABLEOVERRIDE);
        addFlavorTo(flavors, CIMFlavor::TOSUBCLASS);
    }

    CIMName name;
    CIMDataType dataType;
    CIMValue defaultValue = CIMValue(CIMNULL);
    CIMFlavorArray flavors;
};

CIMQualifierType::CIMQualifierType() : m_data(new Data) {}

CIMQualifierType::CIMQualifierType(CIMNULL_t) {}

CIMQualifierType::CIMQualifierType(const CIMName& name) : m_data(new Data)
{
    m_data.write().name = name;
}

CIMQualifierType::CIMQualifierType(const char* name) : CIMQualifierType(CIMName(name)) {}

void CIMQualifierType::setNull()
{
    m_data.setNull();
}

String CIMQualifierType::getName() const
{
    return m_data.read().name.toString();
}

void CIMQualifierType::setName(const CIMName& name)
{
    m_data.write().name = name;
}

CIMDataType CIMQualifierType::getDataType() const
{
    return m_data.read().dataType;
}

CIMQualifierType& CIMQualifierType::setDataType(const CIMDataType& dataType)
{
    m_data.write().dataType = dataType;
    return *this;
}

CIMValue CIMQualifierType::getDefaultValue() const
{
    return m_data.read().defaultValue;
}

CIMQualifierType& CIMQualifierType::setDefaultValue(const CIMValue& value)
{
    m_data.write().defaultValue = CIMValueCast::castValueToDataType(value, getDataType());
    return *this;
}

CIMFlavorArray CIMQualifierType::getFlavors() const
{
    return m_data.read().flavors;
}

CIMQualifierType& CIMQualifierType::addFlavor(const CIMFlavor& flavor)
{
    addFlavorTo(m_data.write().flavors, flavor);
    return *this;
}

bool CIMQualifierType::hasFlavor(const CIMFlavor& flavor) const
{
    return hasFlavorIn(m_data.read().flavors, flavor);
}

String CIMQualifierType::toString() const
{
    return toMOF();
}

String CIMQualifierType::toMOF() const
{
    const Data& data = m_data.read();
    String text = "Qualifier " + data.name.toString() + " : ";
    text += declarationMOF(data.dataType, "").rtrim();
    if (data.defaultValue) {
        text += " = " + data.defaultValue.toMOF();
    }
    return text += ";\n";
}

} // namespace OpenWBEM
