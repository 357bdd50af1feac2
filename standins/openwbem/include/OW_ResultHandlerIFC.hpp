#ifndef OW_RESULT_HANDLER_IFC_HPP_
#define OW_RESULT_HANDLER_IFC_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_IfcsFwd.hpp"

namespace OpenWBEM
{

// Takes the results of an operation one by one. A handler may throw; that ends the operation.
template <class T>
class ResultHandlerIFC
{
  public:
    virtual ~ResultHandlerIFC() {}
    void handle(const T& result) { doHandle(result); }

  protected:
    virtual void doHandle(const T& result) = 0;
};

typedef ResultHandlerIFC<CIMObjectPath> CIMObjectPathResultHandlerIFC;
typedef ResultHandlerIFC<CIMInstance> CIMInstanceResultHandlerIFC;
typedef ResultHandlerIFC<CIMClass> CIMClassResultHandlerIFC;
typedef ResultHandlerIFC<String> StringResultHandlerIFC;
typedef ResultHandlerIFC<CIMQualifierType> CIMQualifierTypeResultHandlerIFC;

} // namespace OpenWBEM

#endif
