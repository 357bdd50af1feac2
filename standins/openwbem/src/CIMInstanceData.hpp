#ifndef OPENWBEM_SRC_CIM_INSTANCE_DATA_HPP_
#define OPENWBEM_SRC_CIM_INSTANCE_DATA_HPP_

#include "COWData.hpp"
#include "OW_CIM.hpp"

namespace OpenWBEM
{

struct CIMInstance::Data : COWData<CIMInstance::Data> {
    void rebuildKeys();

    CIMName className;
    CIMPropertyArray properties;
    CIMPropertyArray keys;
    CIMQualifierArray qualifiers;
    String language;
};

} // namespace OpenWBEM

#endif
