#ifndef OW_CIM_PROPERTY_HPP_
#define OW_CIM_PROPERTY_HPP_

#include "OW_CIMDataType.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"
#include "OW_WBEMFlags.hpp"

namespace OpenWBEM
{

// A property of a class or an instance: name, type, value and qualifiers. A value that is set is cast to the
// type the property already has.
class CIMProperty : public CIMElement
{
  public:
    CIMProperty();
    explicit CIMProperty(CIMNULL_t);
    explicit CIMProperty(const CIMName& name); // without a type
    explicit CIMProperty(const char* name);
    CIMProperty(const CIMName& name, const CIMValue& value); // a null value throws
    CIMProperty(const CIMName& name, const CIMDataType& dataType);

    virtual void setNull();
    virtual String getName() const;
    virtual void setName(const CIMName& name);
    CIMValue getValue() const;
    CIMValue getValueT() const; // NULLValueException when null
    CIMProperty& setValue(const CIMValue& value);
    CIMDataType getDataType() const;
    CIMProperty& setDataType(const CIMDataType& dataType); // casts the value
    CIMProperty& setDataType(const CIMDataType::Type& type);
    Int32 getSize() const;

    CIMQualifierArray getQualifiers() const;
    CIMProperty& setQualifiers(const CIMQualifierArray& qualifiers); // replaces all
    CIMQualifier getQualifier(const CIMName& name) const;            // null when absent
    CIMQualifier getQualifierT(const CIMName& name) const;           // NoSuchQualifierException when absent
    CIMProperty& setQualifier(const CIMQualifier& qualifier);        // replaces or adds
    CIMProperty& addQualifier(const CIMQualifier& qualifier); // CIMException ALREADY_EXISTS when present
    bool removeQualifier(const CIMName& name);
    CIMProperty& clearQualifiers();
    CIMProperty& clearNonKeyQualifiers();
    bool hasTrueQualifier(const CIMName& name) const;

    bool isKey() const; // a true Key qualifier, or a reference
    bool isReference() const;
    String getOriginClass() const;
    CIMProperty& setOriginClass(const CIMName& originClass);
    bool getPropagated() const;
    CIMProperty& setPropagated(bool propagated = true);
    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMProperty& lhs, const CIMProperty& rhs);

} // namespace OpenWBEM

#endif
