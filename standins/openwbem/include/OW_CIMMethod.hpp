#ifndef OW_CIM_METHOD_HPP_
#define OW_CIM_METHOD_HPP_

#include "OW_Array.hpp"
#include "OW_CIMDataType.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMParameter.hpp"
#include "OW_CIMQualifier.hpp"

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
    CIMQualifierArray getQualifiers() const;
    CIMMethod& setQualifiers(const CIMQualifierArray& qualifiers);
    CIMMethod& addQualifier(const CIMQualifier& qualifier); // CIMException ALREADY_EXISTS when present
    CIMQualifier getQualifier(const CIMName& name) const;   // null when absent
    String getOriginClass() const;
    CIMMethod& setOriginClass(const CIMName& originClass);
    bool getPropagated() const;
    CIMMethod& setPropagated(bool propagated = true);
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

} // namespace OpenWBEM

#endif
