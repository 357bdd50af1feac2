#include "COWData.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIM.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchQualifierException.hpp"

namespace OpenWBEM
{

struct CIMProperty::Data : COWData<CIMProperty::Data> {
    CIMName name;
    CIMDataType dataType;
    CIMValue value = CIMValue(CIMNULL);
    CIMQualifierArray qualifiers;
    CIMName originClass;
    bool propagated = false;
};

namespace
{

// Embedded objects stay what they are in properties of any type.
bool isEmbedded(const CIMValue& value)
{
    return value.getType() == CIMDataType::EMBEDDEDCLASS || value.getType() == CIMDataType::EMBEDDEDINSTANCE;
}

CIMValue fitted(const CIMValue& value, const CIMDataType& dataType)
{
    if (!value || !dataType || isEmbedded(value)) {
        return value;
    }
    return CIMValueCast::castValueToDataType(value, dataType);
}

} // namespace

CIMProperty::CIMProperty() : m_data(new Data) {}

CIMProperty::CIMProperty(CIMNULL_t) {}

CIMProperty::CIMProperty(const CIMName& name) : m_data(new Data)
{
    m_data.write().name = name;
}

CIMProperty::CIMProperty(const char* name) : CIMProperty(CIMName(name)) {}

CIMProperty::CIMProperty(const CIMName& name, const CIMValue& value) : CIMProperty(name)
{
    m_data.write().dataType = value.getCIMDataType();
    m_data.write().value = value;
}

CIMProperty::CIMProperty(const CIMName& name, const CIMDataType& dataType) : CIMProperty(name)
{
    m_data.write().dataType = dataType;
}

void CIMProperty::setNull()
{
    m_data.setNull();
}

String CIMProperty::getName() const
{
    return m_data.read().name.toString();
}

void CIMProperty::setName(const CIMName& name)
{
    m_data.write().name = name;
}

CIMValue CIMProperty::getValue() const
{
    return m_data.read().value;
}

CIMValue CIMProperty::getValueT() const
{
    if (!m_data.read().value) {
        OW_THROW(NULLValueException, getName().c_str());
    }
    return getValue();
}

CIMProperty& CIMProperty::setValue(const CIMValue& value)
{
    const CIMValue stored = fitted(value, m_data.read().dataType);
    m_data.write().value = stored;
    return *this;
}

CIMDataType CIMProperty::getDataType() const
{
    return m_data.read().dataType;
}

CIMProperty& CIMProperty::setDataType(const CIMDataType& dataType)
{
    CIMValue stored = m_data.read().value;
    if (stored) {
        dataType.getType(); // throws when null
        stored = isEmbedded(stored) ? stored : CIMValueCast::castValueToDataType(stored, dataType);
    }
    m_data.write().dataType = dataType;
    m_data.write().value = stored;
    return *this;
}

CIMProperty& CIMProperty::setDataType(const CIMDataType::Type& type)
{
    return setDataType(CIMDataType(type));
}

Int32 CIMProperty::getSize() const
{
    m_data.read();
    return -1; // nobody has set one
}

CIMQualifierArray CIMProperty::getQualifiers() const
{
    return m_data.read().qualifiers;
}

CIMProperty& CIMProperty::setQualifiers(const CIMQualifierArray& qualifiers)
{
    m_data.write().qualifiers = qualifiers;
    return *this;
}

CIMQualifier CIMProperty::getQualifier(const CIMName& name) const
{
    return findElement(m_data.read().qualifiers, name);
}

CIMQualifier CIMProperty::getQualifierT(const CIMName& name) const
{
    CIMQualifier qualifier = getQualifier(name);
    if (!qualifier) {
        OW_THROW(NoSuchQualifierException, name.toString().c_str());
    }
    return qualifier;
}

CIMProperty& CIMProperty::setQualifier(const CIMQualifier& qualifier)
{
    if (qualifier) {
        replaceOrAppend(m_data.write().qualifiers, qualifier);
    }
    return *this;
}

CIMProperty& CIMProperty::addQualifier(const CIMQualifier& qualifier)
{
    CIMQualifierArray& qualifiers = m_data.write().qualifiers;
    if (!qualifiers.empty() && hasElement(qualifiers, qualifier.getName())) {
        const String message = "Qualifier " + qualifier.getName() + " already exists";
        throw CIMException(__FILE__, __LINE__, CIMException::ALREADY_EXISTS, message.c_str());
    }
    qualifiers.push_back(qualifier);
    return *this;
}

bool CIMProperty::removeQualifier(const CIMName& name)
{
    return removeElement(m_data.write().qualifiers, name);
}

CIMProperty& CIMProperty::clearQualifiers()
{
    m_data.write().qualifiers.clear();
    return *this;
}

CIMProperty& CIMProperty::clearNonKeyQualifiers()
{
    const CIMQualifier key = getQualifier(CIMQualifier::CIM_QUAL_KEY);
    clearQualifiers();
    return key ? setQualifier(key) : *this;
}

bool CIMProperty::hasTrueQualifier(const CIMName& name) const
{
    const CIMQualifier qualifier = getQualifier(name);
    if (!qualifier || !qualifier.hasValue()) {
        return false;
    }
    const CIMValue value = qualifier.getValue();
    return value.getType() == CIMDataType::BOOLEAN && value.toBool();
}

bool CIMProperty::isKey() const
{
    return isReference() || hasTrueQualifier(CIMQualifier::CIM_QUAL_KEY);
}

bool CIMProperty::isReference() const
{
    return m_data.read().dataType.isReferenceType();
}

String CIMProperty::getOriginClass() const
{
    return m_data.read().originClass.toString();
}

CIMProperty& CIMProperty::setOriginClass(const CIMName& originClass)
{
    m_data.write().originClass = originClass;
    return *this;
}

bool CIMProperty::getPropagated() const
{
    return m_data.read().propagated;
}

CIMProperty& CIMProperty::setPropagated(bool propagated)
{
    m_data.write().propagated = propagated;
    return *this;
}

String CIMProperty::toString() const
{
    const Data& data = m_data.read();
    const String value = data.value ? data.value.toString() : String("null");
    return data.dataType.toString() + ":" + getName() + "=" + value;
}

String CIMProperty::toMOF() const
{
    const Data& data = m_data.read();
    String text = propertyQualifiersMOF(*this) + "  " + declarationMOF(data.dataType, getName());
    if (data.value) {
        text += "=" + data.value.toMOF();
    }
    return text += ";\n";
}

} // namespace OpenWBEM
