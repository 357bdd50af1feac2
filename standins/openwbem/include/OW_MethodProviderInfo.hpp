#ifndef OW_METHOD_PROVIDER_INFO_HPP_
#define OW_METHOD_PROVIDER_INFO_HPP_

#include "OW_ProviderInfoBase.hpp"

namespace OpenWBEM
{

// A class whose methods a provider serves. No methods: all of them.
struct MethClassInfo {
    MethClassInfo() {}
    explicit MethClassInfo(String const& className_) : className(className_) {}
    MethClassInfo(String const& className_, StringArray const& namespaces_, StringArray const& methods_)
        : className(className_), namespaces(namespaces_), methods(methods_)
    {
    }

    String className;
    StringArray namespaces;
    StringArray methods;
};

class MethodProviderInfo : public ProviderInfoBase<MethClassInfo>
{
};

} // namespace OpenWBEM

#endif
