#include "COWData.hpp"
#include "MofText.hpp"
#include "OW_Array.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMQualifierType.hpp"
#include <algorithm>

namespace OpenWBEM
{

struct CIMQualifierType::Data : COWData<CIMQualifierType::Data> {
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
    m_data.write().defaultValue = value;
    return *this;
}

CIMFlavorArray CIMQualifierType::getFlavors() const
{
    return m_data.read().flavors;
}

CIMQualifierType& CIMQualifierType::addFlavor(const CIMFlavor& flavor)
{
    m_data.write().flavors.push_back(flavor);
    return *this;
}

bool CIMQualifierType::hasFlavor(const CIMFlavor& flavor) const
{
    const CIMFlavorArray& flavors = m_data.read().flavors;
    return std::find(flavors.begin(), flavors.end(), flavor) != flavors.end();
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
