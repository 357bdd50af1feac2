#include "ClassRepository.hpp"

#include "ClassBuilder.hpp"
#include "MofParser.hpp"
#include "StandardQualifiers.hpp"

#include "OW_CIMException.hpp"

#include <algorithm>

namespace cimom
{

using namespace OpenWBEM;

const char* const defaultNameSpace = "root/cimv2";

CIMClass NameSpace::findClass(const CIMName& name) const
{
    const auto found = std::find_if(m_classes.begin(), m_classes.end(), [&name](const CIMClass& candidate) {
        return candidate.getName() == name;
    });
    return found != m_classes.end() ? *found : CIMClass(CIMNULL);
}

CIMClassArray NameSpace::subclasses(const CIMName& name, bool deep) const
{
    CIMClassArray result;
    for (const CIMClass& candidate : m_classes) {
        if (candidate.getSuperClass() == name) {
            result.push_back(candidate);
            if (deep) {
                result.appendArray(subclasses(candidate.getName(), true));
            }
        }
    }
    return result;
}

const QualifierDeclaration* NameSpace::findQualifier(const CIMName& name) const
{
    const auto found = std::find_if(
        m_qualifiers.begin(), m_qualifiers.end(),
        [&name](const QualifierDeclaration& candidate) { return candidate.type.getName() == name; });
    return found != m_qualifiers.end() ? &*found : nullptr;
}

void NameSpace::setQualifier(const QualifierDeclaration& declaration)
{
    const CIMName name = declaration.type.getName();
    for (QualifierDeclaration& existing : m_qualifiers) {
        if (existing.type.getName() == name) {
            existing = declaration;
            return;
        }
    }
    m_qualifiers.push_back(declaration);
}

namespace
{

std::string mapKey(const std::string& nameSpace)
{
    return String(nameSpace.empty() ? defaultNameSpace : nameSpace.c_str()).toLowerCase().c_str();
}

} // namespace

ClassRepository::ClassRepository()
{
    add(parseMof(standardQualifiers, "standard qualifiers"));
}

void ClassRepository::add(const MofDocument& document)
{
    for (const MofDeclaration& declaration : document) {
        if (const auto* mofClass = std::get_if<MofClass>(&declaration)) {
            NameSpace& target = m_nameSpaces[mapKey(mofClass->nameSpace)];
            target.addClass(ClassBuilder(target).build(*mofClass));
        } else {
            const auto& qualifier = std::get<MofQualifierDeclaration>(declaration);
            m_nameSpaces[mapKey(qualifier.nameSpace)].setQualifier(buildQualifierDeclaration(qualifier));
        }
    }
}

const NameSpace& ClassRepository::nameSpace(const String& name) const
{
    const auto found = m_nameSpaces.find(String(name).toLowerCase().c_str());
    if (found == m_nameSpaces.end()) {
        throw CIMException("ClassRepository.cpp", __LINE__, CIMException::INVALID_NAMESPACE, name.c_str());
    }
    return found->second;
}

} // namespace cimom
