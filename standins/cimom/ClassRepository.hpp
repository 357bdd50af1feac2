#pragma once

#include "MofSyntax.hpp"

#include "OW_CIMClass.hpp"
#include "OW_CIMQualifierType.hpp"

#include <map>
#include <string>
#include <vector>

namespace cimom
{

extern const char* const defaultNameSpace; // "root/cimv2"

struct QualifierDeclaration {
    OpenWBEM::CIMQualifierType type;
    std::vector<std::string> scopes; // lower case
};

// The classes of one namespace in the order of declaration, complete with what they inherit.
class NameSpace
{
  public:
    // Null when there is no such class; letter case does not matter.
    OpenWBEM::CIMClass findClass(const OpenWBEM::CIMName& name) const;
    // The subclasses of a class, or the classes without superclass when the name is empty. With `deep`, each
    // is followed by its own subclasses.
    OpenWBEM::CIMClassArray subclasses(const OpenWBEM::CIMName& name, bool deep) const;
    const QualifierDeclaration* findQualifier(const OpenWBEM::CIMName& name) const;
    const std::vector<QualifierDeclaration>& qualifiers() const { return m_qualifiers; }

    void addClass(const OpenWBEM::CIMClass& cimClass) { m_classes.push_back(cimClass); }
    void setQualifier(const QualifierDeclaration& declaration); // replaces one of the same name

  private:
    std::vector<OpenWBEM::CIMClass> m_classes;
    std::vector<QualifierDeclaration> m_qualifiers;
};

// The classes that clients can ask about, from MOF. The default namespace is there from the start, with the
// standard's qualifiers declared; other namespaces begin empty with their first declaration.
class ClassRepository
{
  public:
    ClassRepository();

    // Throws MofError; the declarations before the faulty one are then there.
    void add(const MofDocument& document);

    // Throws CIMException INVALID_NAMESPACE; letter case does not matter.
    const NameSpace& nameSpace(const OpenWBEM::String& name) const;

  private:
    std::map<std::string, NameSpace> m_nameSpaces; // by lower-case name
};

} // namespace cimom
