#include "COWData.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMValueCast.hpp"
#include <utility>

namespace OpenWBEM
{

namespace
{

// What a property has from its class. In most instances the properties have none of it.
struct Declaration : COWData<Declaration> {
    CIMQualifierArray qualifiers;
    CIMName originClass;
    bool propagated = false;
};

} // namespace

struct CIMProperty::Data : COWData<CIMProperty::Data> {
    Data() : value(CIMNULL) {}
    Data(CIMName itsName, const CIMDataType& type, const CIMValue& content)
        : name(std::move(itsName)), dataType(type), value(content)
    {
    }

    CIMName name;
    CIMDataType dataType;
    CIMValue value;

    const Declaration& declared() const
    {
        static const Declaration nothing;
        return declaration.isNull() ? nothing : declaration.read();
    }
    Declaration& declare()
    {
        if (declaration.isNull()) {
            declaration = COWReference<Declaration>(new Declaration);
        }
        return declaration.write();
    }

  private:
    COWReference<Declaration> declaration; // null until something of it is set
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

CIMProperty::CIMProperty(const CIMName& name) : CIMProperty(name, CIMDataType()) {}

CIMProperty::CIMProperty(const char* name) : CIMProperty(CIMName(name)) {}

CIMProperty::CIMProperty(CIMName name, const CIMValue& value)
    : m_data(new Data(std::move(name), value.getCIMDataType(), value))
{
}

CIMProperty::CIMProperty(CIMName name, const CIMDataType& dataType)
    : m_data(new Data(std::move(name), dataType, CIMValue(CIMNULL)))
{
}

void CIMProperty::setNull()
{
    m_data.setNull();
}

String CIMProperty::getName() const
{
    return m_data.read().name.toString();
}

const CIMName& nameOf(const CIMProperty& property)
{
    return property.m_data.read().name;
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
    const CIMValue stored = fitted(m_data.read().value, dataType);
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
    return m_data.read().dataType.getSize();
}

CIMQualifierArray CIMProperty::getQualifiers() const
{
    return m_data.read().declared().qualifiers;
}

CIMProperty& CIMProperty::setQualifiers(const CIMQualifierArray& qualifiers)
{
    m_data.write().declare().qualifiers = qualifiers;
    return *this;
}

CIMQualifier CIMProperty::getQualifier(const CIMName& name) const
{
    return findElement(m_data.read().declared().qualifiers, name);
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
    replaceOrAppend(m_data.write().declare().qualifiers, qualifier);
    return *this;
}

CIMProperty& CIMProperty::addQualifier(const CIMQualifier& qualifier)
{
    addNewElement(m_data.write().declare().qualifiers, qualifier);
    return *this;
}

bool CIMProperty::removeQualifier(const CIMName& name)
{
    return removeElement(m_data.write().declare().qualifiers, name);
}

CIMProperty& CIMProperty::clearQualifiers()
{
    m_data.write().declare().qualifiers.clear();
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
    return qualifier && qualifier.getValue() == CIMValue(true);
}

bool CIMProperty::isKey() const
{
    const bool isQualified = !m_data.read().declared().qualifiers.empty();
    return isReference() || (isQualified && hasTrueQualifier(CIMQualifier::CIM_QUAL_KEY));
}

bool CIMProperty::isReference() const
{
    const CIMDataType& dataType = m_data.read().dataType;
    return dataType && dataType.isReferenceType();
}

String CIMProperty::getOriginClass() const
{
    return m_data.read().declared().originClass.toString();
}

CIMProperty& CIMProperty::setOriginClass(const CIMName& originClass)
{
    m_data.write().declare().originClass = originClass;
    return *this;
}

bool CIMProperty::getPropagated() const
{
    return m_data.read().declared().propagated;
}

CIMProperty& CIMProperty::setPropagated(bool propagated)
{
    m_data.write().declare().propagated = propagated;
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
    String text =
        qualifiersMOF(data.declared().qualifiers, "  ") + "  " + declarationMOF(data.dataType, getName());
    if (data.value) {
        text += "=" + data.value.toMOF();
    }
    return text += ";\n";
}

} // namespace OpenWBEM
