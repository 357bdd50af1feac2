#include "COWData.hpp"
#include "MofText.hpp"
#include "NamedElements.hpp"
#include "OW_CIM.hpp"

namespace OpenWBEM
{

struct CIMMethod::Data : COWData<CIMMethod::Data> {
    CIMName name;
    CIMDataType returnType;
    CIMParameterArray parameters;
    CIMQualifierArray qualifiers;
    CIMName originClass;
    bool propagated = false;
};

namespace
{

bool isIn(const CIMParameter& parameter)
{
    const CIMQualifier qualifier = parameter.getQualifier("In");
    return !qualifier || qualifier.getValue() == CIMValue(true);
}

bool isOut(const CIMParameter& parameter)
{
    const CIMQualifier qualifier = parameter.getQualifier("Out");
    return qualifier && qualifier.getValue() == CIMValue(true);
}

CIMParameterArray selected(const CIMParameterArray& parameters, bool (*wanted)(const CIMParameter&))
{
    CIMParameterArray found;
    for (const CIMParameter& parameter : parameters) {
        if (wanted(parameter)) {
            found.push_back(parameter);
        }
    }
    return found;
}

} // namespace

CIMMethod::CIMMethod() : m_data(new Data) {}

CIMMethod::CIMMethod(CIMNULL_t) {}

CIMMethod::CIMMethod(const CIMName& name) : m_data(new Data)
{
    m_data.write().name = name;
}

void CIMMethod::setNull()
{
    m_data.setNull();
}

String CIMMethod::getName() const
{
    return m_data.read().name.toString();
}

void CIMMethod::setName(const CIMName& name)
{
    m_data.write().name = name;
}

CIMDataType CIMMethod::getReturnType() const
{
    return m_data.read().returnType;
}

CIMMethod& CIMMethod::setReturnType(const CIMDataType& type)
{
    m_data.write().returnType = type;
    return *this;
}

CIMParameterArray CIMMethod::getParameters() const
{
    return m_data.read().parameters;
}

CIMParameterArray CIMMethod::getINParameters() const
{
    return selected(m_data.read().parameters, isIn);
}

CIMParameterArray CIMMethod::getOUTParameters() const
{
    return selected(m_data.read().parameters, isOut);
}

CIMMethod& CIMMethod::setParameters(const CIMParameterArray& parameters)
{
    m_data.write().parameters = parameters;
    return *this;
}

CIMMethod& CIMMethod::addParameter(const CIMParameter& parameter)
{
    m_data.write().parameters.push_back(parameter);
    return *this;
}

CIMQualifierArray CIMMethod::getQualifiers() const
{
    return m_data.read().qualifiers;
}

CIMMethod& CIMMethod::setQualifiers(const CIMQualifierArray& qualifiers)
{
    m_data.write().qualifiers = qualifiers;
    return *this;
}

CIMMethod& CIMMethod::addQualifier(const CIMQualifier& qualifier)
{
    m_data.write().qualifiers.push_back(qualifier);
    return *this;
}

CIMQualifier CIMMethod::getQualifier(const CIMName& name) const
{
    return findElement(m_data.read().qualifiers, name);
}

String CIMMethod::getOriginClass() const
{
    return m_data.read().originClass.toString();
}

CIMMethod& CIMMethod::setOriginClass(const CIMName& originClass)
{
    m_data.write().originClass = originClass;
    return *this;
}

bool CIMMethod::getPropagated() const
{
    return m_data.read().propagated;
}

CIMMethod& CIMMethod::setPropagated(bool propagated)
{
    m_data.write().propagated = propagated;
    return *this;
}

String CIMMethod::toString() const
{
    return "CIMMethod NAME = " + getName();
}

String CIMMethod::toMOF() const
{
    const Data& data = m_data.read();
    String text = qualifiersMOF(data.qualifiers, ",") + data.returnType.toMOF() + " " + getName() + "(";
    for (size_t i = 0; i < data.parameters.size(); ++i) {
        text += i ? "," : "";
        text += data.parameters[i].toMOF();
    }
    return text += ");\n";
}

} // namespace OpenWBEM
