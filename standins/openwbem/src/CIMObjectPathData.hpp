#ifndef OPENWBEM_SRC_CIM_OBJECT_PATH_DATA_HPP_
#define OPENWBEM_SRC_CIM_OBJECT_PATH_DATA_HPP_

#include "COWData.hpp"
#include "OW_CIM.hpp"

namespace OpenWBEM
{

struct CIMObjectPath::Data : COWData<CIMObjectPath::Data> {
    void takePlace(String& rest, const String& whole);

    CIMName className;
    String nameSpace;
    String protocol = "http"; // empty after parsing a text without one
    String host = "127.0.0.1";
    UInt16 port = 5988;
    CIMPropertyArray keys;
};

} // namespace OpenWBEM

#endif
