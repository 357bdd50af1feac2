#ifndef OW_CIM_FWD_HPP_
#define OW_CIM_FWD_HPP_

#include "OW_ArrayFwd.hpp"
#include "OW_CommonFwd.hpp"

namespace OpenWBEM
{

class CIMBase;
class CIMClass;
class CIMDataType;
class CIMDateTime;
class CIMElement;
class CIMException;
class CIMFlavor;
class CIMInstance;
class CIMMethod;
class CIMName;
class CIMObjectPath;
class CIMParamValue;
class CIMParameter;
class CIMProperty;
class CIMQualifier;
class CIMQualifierType;
class CIMValue;

typedef Array<CIMClass> CIMClassArray;
typedef Array<CIMDateTime> CIMDateTimeArray;
typedef Array<CIMFlavor> CIMFlavorArray;
typedef Array<CIMInstance> CIMInstanceArray;
typedef Array<CIMMethod> CIMMethodArray;
typedef Array<CIMObjectPath> CIMObjectPathArray;
typedef Array<CIMParamValue> CIMParamValueArray;
typedef Array<CIMParameter> CIMParameterArray;
typedef Array<CIMProperty> CIMPropertyArray;
typedef Array<CIMQualifier> CIMQualifierArray;
typedef Array<CIMQualifierType> CIMQualifierTypeArray;
typedef Array<CIMValue> CIMValueArray;

} // namespace OpenWBEM

#endif
