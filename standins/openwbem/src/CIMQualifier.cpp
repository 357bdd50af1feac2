#include "COWData.hpp"
#include "Flavors.hpp"
#include "NamedElements.hpp"
#include "OW_CIM.hpp"
#include "OW_NULLValueException.hpp"

namespace OpenWBEM
{

const char* const CIMQualifier::CIM_QUAL_KEY = "Key";

struct CIMQualifier::Data : COWData<CIMQualifier::Data> {
    CIMName name;
    CIMValue value = CIMValue(CIMNULL);
    CIMFlavorArray flavors;
    bool propagated = false;
};

CIMQualifier::CIMQualifier() : m_data(new Data) {}

CIMQualifier::CIMQualifier(CIMNULL_t) {}

CIMQualifier::CIMQualifier(const CIMName& name) : m_data(new Data)
{
    m_data.write().name = name;
}

CIMQualifier::CIMQualifier(const char* name) : CIMQualifier(CIMName(name)) {}

CIMQualifier::CIMQualifier(const CIMQualifierType& declaration) : CIMQualifier(CIMName(declaration.getName()))
{
    m_data.write().value = declaration.getDefaultValue();
    m_data.write().flavors = declaration.getFlavors();
}

void CIMQualifier::setNull()
{
    m_data.setNull();
}

String CIMQualifier::getName() const
{
    return m_data.read().name.toString();
}

void CIMQualifier::setName(const CIMName& name)
{
    m_data.write().name = name;
}

CIMValue CIMQualifier::getValue() const
{
    return m_data.read().value;
}

CIMValue CIMQualifier::getValueT() const
{
    if (!hasValue()) {
        OW_THROW(NULLValueException, "");
    }
    return getValue();
}

CIMQualifier& CIMQualifier::setValue(const CIMValue& value)
{
    m_data.write().value = value;
    return *this;
}

bool CIMQualifier::hasValue() const
{
    return bool(m_data.read().value);
}

bool CIMQualifier::equals(const CIMQualifier& arg) const
{
    return m_data.read().name == arg.m_data.read().name;
}

bool CIMQualifier::isKeyQualifier() const
{
    return m_data.read().name == CIM_QUAL_KEY;
}

CIMFlavorArray CIMQualifier::getFlavor() const
{
    return m_data.read().flavors;
}

CIMQualifier& CIMQualifier::addFlavor(const CIMFlavor& flavor)
{
    addFlavorTo(m_data.write().flavors, flavor);
    return *this;
}

bool CIMQualifier::hasFlavor(const CIMFlavor& flavor) const
{
    return hasFlavorIn(m_data.read().flavors, flavor);
}

bool CIMQualifier::getPropagated() const
{
    return m_data.read().propagated;
}

CIMQualifier& CIMQualifier::setPropagated(bool propagated)
{
    m_data.write().propagated = propagated;
    return *this;
}

String CIMQualifier::toString() const
{
    return "CIMQualifier(" + getName() + ")";
}

String CIMQualifier::toMOF() const
{
    const CIMValue& value = m_data.read().value;
    if (!value) {
        return getName();
    }
    return getName() + "(" + value.toMOF() + ")";
}

CIMQualifier CIMQualifier::createKeyQualifier()
{
    return CIMQualifier(CIM_QUAL_KEY).setValue(CIMValue(true));
}

} // namespace OpenWBEM
