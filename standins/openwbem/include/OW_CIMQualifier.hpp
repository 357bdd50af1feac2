#ifndef OW_CIM_QUALIFIER_HPP_
#define OW_CIM_QUALIFIER_HPP_

#include "OW_CIMElement.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"

namespace OpenWBEM
{

// A qualifier of a class, an instance, a property, a method or a parameter. A name and a value suffice;
// without a value it cannot be sent to a client.
class CIMQualifier : public CIMElement
{
  public:
    static const char* const CIM_QUAL_KEY;

    CIMQualifier();
    explicit CIMQualifier(CIMNULL_t);
    CIMQualifier(const CIMName& name);
    CIMQualifier(const char* name);
    CIMQualifier(const CIMQualifierType& declaration); // with the declaration's default value and flavors

    virtual void setNull();
    virtual String getName() const;
    virtual void setName(const CIMName& name);
    CIMValue getValue() const;
    CIMValue getValueT() const; // NULLValueException when null
    CIMQualifier& setValue(const CIMValue& value);
    bool hasValue() const;
    bool equals(const CIMQualifier& arg) const; // by name
    bool isKeyQualifier() const;
    CIMFlavorArray getFlavor() const;
    CIMQualifier& addFlavor(const CIMFlavor& flavor);
    bool hasFlavor(const CIMFlavor& flavor) const;
    bool getPropagated() const;
    CIMQualifier& setPropagated(bool propagated = true);
    virtual String toString() const;
    virtual String toMOF() const;

    static CIMQualifier createKeyQualifier();

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMQualifier& lhs, const CIMQualifier& rhs);

} // namespace OpenWBEM

#endif
