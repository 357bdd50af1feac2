#include "ClassBuilder.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMMethod.hpp"
#include "OW_CIMParameter.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"

#include <algorithm>

namespace cimom
{

using namespace OpenWBEM;

namespace
{

CIMDataType dataType(const MofType& mof)
{
    CIMDataType result =
        mof.isReference ? CIMDataType(CIMName(mof.name.c_str())) : CIMDataType::getDataType(mof.name.c_str());
    if (mof.isArray) {
        result.setToArrayType(mof.arraySize);
    }
    return result;
}

bool fits(MofConstant::Kind kind, const CIMDataType& type)
{
    switch (kind) {
    case MofConstant::Kind::String:
        return type.getType() == CIMDataType::STRING || type.getType() == CIMDataType::DATETIME;
    case MofConstant::Kind::Character:
        return type.getType() == CIMDataType::CHAR16;
    case MofConstant::Kind::Boolean:
        return type.getType() == CIMDataType::BOOLEAN;
    case MofConstant::Kind::Real:
        return type.getType() == CIMDataType::REAL32 || type.getType() == CIMDataType::REAL64;
    case MofConstant::Kind::Integer:
        return type.isNumericType();
    }
    return false;
}

CIMValue convert(const MofConstant& constant, const CIMDataType& type)
{
    if (fits(constant.kind, type)) {
        try {
            return CIMValue::createSimpleValue(type.toString(), constant.text.c_str());
        } catch (const Exception&) { // out of range, not a datetime
        }
    }
    throw MofError(constant.position, std::string("a value of type ") + type.toString().c_str(),
                   "'" + constant.text + "'");
}

CIMValue convert(const MofValue& mof, const CIMDataType& type)
{
    if (mof.isNull()) {
        return CIMValue(CIMNULL);
    }
    if (mof.isArray != type.isArrayType()) {
        throw MofError(mof.position, mof.isArray ? "a single value" : "an array in braces",
                       mof.isArray ? "'{'" : "'" + mof.elements[0].text + "'");
    }
    if (!mof.isArray) {
        return convert(mof.elements[0], type);
    }
    StringArray texts;
    for (const MofConstant& constant : mof.elements) {
        texts.push_back(convert(constant, type).toString());
    }
    return CIMValueCast::castValueToDataType(CIMValue(texts), type);
}

// Adds the qualifiers that an element inherits from its superclass. One that the element repeats with the
// same value counts as inherited.
void inheritQualifiers(CIMQualifierArray& own, const CIMQualifierArray& inherited)
{
    for (CIMQualifier qualifier : inherited) {
        if (qualifier.hasFlavor(CIMFlavor(CIMFlavor::RESTRICTED))) {
            continue;
        }
        const CIMName name = qualifier.getName();
        const auto repeated = std::find_if(own.begin(), own.end(), [&name](const CIMQualifier& candidate) {
            return candidate.getName() == name;
        });
        if (repeated != own.end() && repeated->getValue() != qualifier.getValue()) {
            continue;
        }
        if (repeated != own.end()) {
            own.erase(repeated);
        }
        own.push_back(qualifier.setPropagated(true));
    }
}

template <class Feature, class Features>
void addOnce(Features& features, Feature feature, const CIMName& className, const SourcePosition& position)
{
    const CIMName name = feature.getName();
    for (const Feature& existing : features) {
        if (existing.getName() == name) {
            throw MofError(position, "a name not used in the class yet",
                           std::string("'") + feature.getName().c_str() + "'");
        }
    }
    features.push_back(feature.setOriginClass(className).setPropagated(false));
}

// Appends what the superclass has and the class does not declare itself.
template <class Features>
void inheritFeatures(Features& own, const Features& inherited)
{
    const Features declared = own;
    for (auto feature : inherited) {
        const CIMName name = feature.getName();
        const bool isOverridden =
            std::any_of(declared.begin(), declared.end(),
                        [&name](const auto& candidate) { return candidate.getName() == name; });
        if (!isOverridden) {
            own.push_back(feature.setPropagated(true));
        }
    }
}

} // namespace

QualifierDeclaration buildQualifierDeclaration(const MofQualifierDeclaration& mof)
{
    QualifierDeclaration result;
    result.type = CIMQualifierType(CIMName(mof.name.c_str()));
    result.type.setDataType(dataType(mof.type));
    result.type.setDefaultValue(convert(mof.defaultValue, dataType(mof.type)));
    if (!mof.flavors.overridable) {
        result.type.addFlavor(CIMFlavor(CIMFlavor::DISABLEOVERRIDE));
    }
    if (!mof.flavors.toSubclass) {
        result.type.addFlavor(CIMFlavor(CIMFlavor::RESTRICTED));
    }
    if (mof.flavors.translatable) {
        result.type.addFlavor(CIMFlavor(CIMFlavor::TRANSLATE));
    }
    result.scopes = mof.scopes;
    return result;
}

CIMClass ClassBuilder::build(const MofClass& mof) const
{
    if (m_nameSpace.findClass(mof.name.c_str())) {
        throw MofError(mof.position, "a class not declared yet", "'" + mof.name + "'");
    }
    const CIMClass inherited = superClass(mof);
    CIMClass result(mof.name.c_str());
    CIMQualifierArray classQualifiers = qualifiers(mof.qualifiers);
    if (inherited) {
        result.setSuperClass(inherited.getName());
        inheritQualifiers(classQualifiers, inherited.getQualifiers());
    }
    result.setQualifiers(classQualifiers);
    result.setProperties(properties(mof, inherited));
    result.setMethods(methods(mof, inherited));
    return result;
}

CIMClass ClassBuilder::superClass(const MofClass& mof) const
{
    if (mof.superClass.empty()) {
        return CIMClass(CIMNULL);
    }
    CIMClass result = m_nameSpace.findClass(mof.superClass.c_str());
    if (!result) {
        throw MofError(mof.superClassPosition, "a class declared before", "'" + mof.superClass + "'");
    }
    return result;
}

CIMQualifierArray ClassBuilder::qualifiers(const std::vector<MofQualifier>& mof) const
{
    CIMQualifierArray result;
    for (const MofQualifier& qualifier : mof) {
        const QualifierDeclaration* declaration = m_nameSpace.findQualifier(qualifier.name.c_str());
        if (declaration == nullptr) {
            throw MofError(qualifier.position, "a declared qualifier", "'" + qualifier.name + "'");
        }
        CIMQualifier built(declaration->type);
        if (qualifier.hasValue) {
            built.setValue(convert(qualifier.value, declaration->type.getDataType()));
        } else if (declaration->type.getDataType().getType() == CIMDataType::BOOLEAN) {
            built.setValue(CIMValue(true));
        }
        if (!built.getValue()) {
            throw MofError(qualifier.position, "a qualifier with a value", "'" + qualifier.name + "'");
        }
        result.push_back(built);
    }
    return result;
}

CIMProperty ClassBuilder::property(const MofProperty& mof) const
{
    CIMProperty result(CIMName(mof.name.c_str()), dataType(mof.type));
    result.setValue(convert(mof.defaultValue, dataType(mof.type)));
    result.setQualifiers(qualifiers(mof.qualifiers));
    return result;
}

CIMMethod ClassBuilder::method(const MofMethod& mof) const
{
    CIMParameterArray parameters;
    for (const MofParameter& parameter : mof.parameters) {
        CIMParameter built(CIMName(parameter.name.c_str()));
        built.setDataType(dataType(parameter.type)).setQualifiers(qualifiers(parameter.qualifiers));
        parameters.push_back(built);
    }
    CIMMethod result(CIMName(mof.name.c_str()));
    result.setReturnType(dataType(mof.type))
        .setParameters(parameters)
        .setQualifiers(qualifiers(mof.qualifiers));
    return result;
}

CIMPropertyArray ClassBuilder::properties(const MofClass& mof, const CIMClass& inherited) const
{
    CIMPropertyArray result;
    for (const MofProperty& declared : mof.properties) {
        CIMProperty built = property(declared);
        if (const CIMProperty overridden =
                inherited ? inherited.getProperty(built.getName()) : CIMProperty(CIMNULL)) {
            CIMQualifierArray all = built.getQualifiers();
            inheritQualifiers(all, overridden.getQualifiers());
            built.setQualifiers(all);
        }
        addOnce(result, built, mof.name.c_str(), declared.position);
    }
    if (inherited) {
        inheritFeatures(result, inherited.getAllProperties());
    }
    return result;
}

CIMMethodArray ClassBuilder::methods(const MofClass& mof, const CIMClass& inherited) const
{
    CIMMethodArray result;
    for (const MofMethod& declared : mof.methods) {
        addOnce(result, method(declared), mof.name.c_str(), declared.position);
    }
    if (inherited) {
        inheritFeatures(result, inherited.getAllMethods());
    }
    return result;
}

} // namespace cimom
