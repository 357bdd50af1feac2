#pragma once

#include "ClassRepository.hpp"

namespace cimom
{

// Make CIM declarations of what a MOF file says. They throw MofError for unknown names and for values that do
// not fit their type.
QualifierDeclaration buildQualifierDeclaration(const MofQualifierDeclaration& mof);

class ClassBuilder
{
  public:
    // Superclass and qualifiers are looked up in the namespace that the class is for.
    explicit ClassBuilder(const NameSpace& nameSpace) : m_nameSpace(nameSpace) {}

    // The class, complete with what it inherits: its own properties and methods first, then those of its
    // superclass that it does not override.
    OpenWBEM::CIMClass build(const MofClass& mof) const;

  private:
    OpenWBEM::CIMClass superClass(const MofClass& mof) const;
    OpenWBEM::CIMQualifierArray qualifiers(const std::vector<MofQualifier>& mof) const;
    OpenWBEM::CIMProperty property(const MofProperty& mof) const;
    OpenWBEM::CIMMethod method(const MofMethod& mof) const;
    OpenWBEM::CIMPropertyArray properties(const MofClass& mof, const OpenWBEM::CIMClass& inherited) const;
    OpenWBEM::CIMMethodArray methods(const MofClass& mof, const OpenWBEM::CIMClass& inherited) const;

    const NameSpace& m_nameSpace;
};

} // namespace cimom
