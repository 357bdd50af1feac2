#ifndef OW_CIM_QUALIFIER_TYPE_HPP_
#define OW_CIM_QUALIFIER_TYPE_HPP_

#include "OW_CIMDataType.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"

namespace OpenWBEM
{

// The declaration of a qualifier: its type, the value it has when none is given, and its flavors.
class CIMQualifierType : public CIMElement
{
  public:
    CIMQualifierType();
    explicit CIMQualifierType(CIMNULL_t);
    CIMQualifierType(const CIMName& name);
    CIMQualifierType(const char* name);

    virtual void setNull();
    virtual String getName() const;
    virtual void setName(const CIMName& name);
    CIMDataType getDataType() const;
    CIMQualifierType& setDataType(const CIMDataType& dataType);
    CIMValue getDefaultValue() const;
    CIMQualifierType& setDefaultValue(const CIMValue& value); // cast to the declared type
    CIMFlavorArray getFlavors() const;
    CIMQualifierType& addFlavor(const CIMFlavor& flavor);
    bool hasFlavor(const CIMFlavor& flavor) const;
    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMQualifierType& lhs, const CIMQualifierType& rhs);

} // namespace OpenWBEM

#endif
