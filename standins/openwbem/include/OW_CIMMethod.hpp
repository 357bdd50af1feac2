#ifndef OW_CIM_METHOD_HPP_
#define OW_CIM_METHOD_HPP_

#include "OW_CIMElement.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"
#include "OW_WBEMFlags.hpp"

namespace OpenWBEM
{

// The declaration of a method of a class.
class CIMMethod : public CIMElement
{
  public:
    CIMMethod();
    explicit CIMMethod(CIMNULL_t);
    explicit CIMMethod(const CIMName& name);

    virtual void setNull();
    virtual String getName() const;
    virtual void setName(const CIMName& name);
    CIMDataType getReturnType() const;
    CIMMethod& setReturnType(const CIMDataType& type);
    CIMParameterArray getParameters() const;
    CIMParameterArray getINParameters() const;  // an absent In qualifier means true
    CIMParameterArray getOUTParameters() const; // a true Out qualifier
    CIMMethod& setParameters(const CIMParameterArray& parameters);
    CIMMethod& addParameter(const CIMParameter& parameter);
    CIMQualifierArray getQualifiers() const;
    CIMMethod& setQualifiers(const CIMQualifierArray& qualifiers);
    CIMMethod& addQualifier(const CIMQualifier& qualifier); // even if there is one of that name
    CIMQualifier getQualifier(const CIMName& name) const;   // null when absent
    String getOriginClass() const;
    CIMMethod& setOriginClass(const CIMName& originClass);
    bool getPropagated() const;
    CIMMethod& setPropagated(bool propagated = true);
    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMMethod& lhs, const CIMMethod& rhs);

} // namespace OpenWBEM

#endif
