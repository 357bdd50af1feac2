#ifndef OW_CIM_PARAM_VALUE_HPP_
#define OW_CIM_PARAM_VALUE_HPP_

#include "OW_CIMBase.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"

namespace OpenWBEM
{

// A named argument of a method call.
class CIMParamValue : public CIMBase
{
  public:
    CIMParamValue();
    explicit CIMParamValue(CIMNULL_t);
    explicit CIMParamValue(const CIMName& name);
    CIMParamValue(const CIMName& name, const CIMValue& value);

    virtual void setNull();
    String getName() const;
    CIMParamValue& setName(const CIMName& name);
    CIMValue getValue() const;
    CIMParamValue& setValue(const CIMValue& value);
    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMParamValue& lhs, const CIMParamValue& rhs);

} // namespace OpenWBEM

#endif
