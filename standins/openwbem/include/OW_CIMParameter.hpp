#ifndef OW_CIM_PARAMETER_HPP_
#define OW_CIM_PARAMETER_HPP_

#include "OW_CIMDataType.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMQualifier.hpp"

namespace OpenWBEM
{

// A parameter in the declaration of a method.
class CIMParameter : public CIMElement
{
  public:
    CIMParameter();
    explicit CIMParameter(CIMNULL_t);
    explicit CIMParameter(const CIMName& name);

    virtual void setNull();
    virtual String getName() const;
    virtual void setName(const CIMName& name);
    CIMDataType getType() const;
    CIMParameter& setDataType(const CIMDataType& dataType);
    CIMQualifierArray getQualifiers() const;
    CIMParameter& setQualifiers(const CIMQualifierArray& qualifiers);
    CIMQualifier getQualifier(const CIMName& name) const; // null when absent
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

} // namespace OpenWBEM

#endif
