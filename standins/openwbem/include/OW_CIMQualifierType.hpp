#ifndef OW_CIM_QUALIFIER_TYPE_HPP_
#define OW_CIM_QUALIFIER_TYPE_HPP_

#include "OW_CIMDataType.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMValue.hpp"

namespace OpenWBEM
{

// The declaration of a qualifier: its type, the value it has when none is given, and its flavors.
class CIMQualifierType : public CIMElement
{
  public:
    CIMQualifierType();
    explicit CIMQualifierType(CIMNULL_t);
    explicit CIMQualifierType(const CIMName& name);

    virtual void setNull();
    virtual String getName() const;
    virtual void setName(const CIMName& name);
    CIMDataType getDataType() const;
    CIMQualifierType& setDataType(const CIMDataType& dataType);
    CIMValue getDefaultValue() const;
    CIMQualifierType& setDefaultValue(const CIMValue& value);
    CIMFlavorArray getFlavors() const;
    CIMQualifierType& addFlavor(const CIMFlavor& flavor);
    bool hasFlavor(const CIMFlavor& flavor) const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

} // namespace OpenWBEM

#endif
