#ifndef OW_CIM_CLASS_HPP_
#define OW_CIM_CLASS_HPP_

#include "OW_Array.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"
#include "OW_String.hpp"
#include "OW_WBEMFlags.hpp"

namespace OpenWBEM
{

// The definition of a CIM class, complete with everything inherited.
class CIMClass : public CIMElement
{
  public:
    CIMClass();
    explicit CIMClass(CIMNULL_t);
    explicit CIMClass(const CIMName& name);
    explicit CIMClass(const char* name);

    virtual void setNull();
    virtual String getName() const;
    virtual void setName(const CIMName& name);
    String getSuperClass() const;
    CIMClass& setSuperClass(const CIMName& name);

    CIMPropertyArray getAllProperties() const;
    CIMProperty getProperty(const CIMName& name) const; // null when absent
    CIMPropertyArray getKeys() const;
    CIMClass& addProperty(const CIMProperty& property); // even if there is one of that name
    CIMClass& setProperty(const CIMProperty& property); // replaces or adds
    CIMClass& setProperties(const CIMPropertyArray& properties);

    CIMQualifierArray getQualifiers() const;
    CIMQualifier getQualifier(const CIMName& name) const;  // null when absent
    CIMClass& addQualifier(const CIMQualifier& qualifier); // at the end; one of that name goes
    CIMClass& setQualifiers(const CIMQualifierArray& qualifiers);

    CIMMethodArray getAllMethods() const;
    CIMMethod getMethod(const CIMName& name) const; // null when absent
    CIMClass& addMethod(const CIMMethod& method);   // even if there is one of that name
    CIMClass& setMethods(const CIMMethodArray& methods);

    CIMInstance newInstance() const; // all properties with their defaults
    // Of properties, qualifiers and methods only the numbers count.
    bool operator==(const CIMClass& arg) const;
    bool operator!=(const CIMClass& arg) const { return !(*this == arg); }
    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMClass& lhs, const CIMClass& rhs);
bool operator<=(const CIMClass& lhs, const CIMClass& rhs);
bool operator>(const CIMClass& lhs, const CIMClass& rhs);
bool operator>=(const CIMClass& lhs, const CIMClass& rhs);

} // namespace OpenWBEM

#endif
