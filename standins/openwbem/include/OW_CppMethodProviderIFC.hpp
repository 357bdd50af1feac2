#ifndef OW_CPP_METHOD_PROVIDER_IFC_HPP_
#define OW_CPP_METHOD_PROVIDER_IFC_HPP_

#include "OW_CppProviderBaseIFC.hpp"
#include "OW_MethodProviderInfo.hpp"
#include "OW_SharedLibraryReference.hpp"

namespace OpenWBEM
{

// A provider of methods. A null result means that the method returns nothing.
class CppMethodProviderIFC : public virtual CppProviderBaseIFC
{
  public:
    virtual ~CppMethodProviderIFC();

    virtual void getMethodProviderInfo(MethodProviderInfo& info); // registers nothing
    virtual CIMValue invokeMethod(const ProviderEnvironmentIFCRef& env, const String& ns,
                                  const CIMObjectPath& path, const String& methodName,
                                  const CIMParamValueArray& in, CIMParamValueArray& out) = 0;
    virtual CppMethodProviderIFC* getMethodProvider();
};

} // namespace OpenWBEM

#endif
