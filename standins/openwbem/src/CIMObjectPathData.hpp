#ifndef OPENWBEM_SRC_CIM_OBJECT_PATH_DATA_HPP_
#define OPENWBEM_SRC_CIM_OBJECT_PATH_DATA_HPP_

#include "COWData.hpp"
#include "OW_CIMObjectPath.hpp"

namespace OpenWBEM
{

struct CIMObjectPath::Data : COWData<CIMObjectPath::Data> {
    CIMName className;
    String nameSpace;
    String host;
    CIMPropertyArray keys;
};

} // namespace OpenWBEM

#endif
