#ifndef OW_CIM_PARAMETER_HPP_
#define OW_CIM_PARAMETER_HPP_

#include "OW_CIMElement.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"

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
    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMParameter& lhs, const CIMParameter& rhs);

} // namespace OpenWBEM

#endif
