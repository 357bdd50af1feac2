#ifndef OW_CIM_VALUE_CAST_HPP_
#define OW_CIM_VALUE_CAST_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_Exception.hpp"

namespace OpenWBEM
{

// A value was asked for as another type than it has. The message is
// CIMValue::CIMValueImpl::get - Value is not a NAME.
OW_DECLARE_EXCEPTION(ValueCast)

namespace CIMValueCast
{

// The value as the given type, by way of its text. Null when the value or the type is null. CIMException
// FAILED when the types do not convert or the text does not fit; a text that is no datetime throws
// CIMDateTimeException.
CIMValue castValueToDataType(const CIMValue& value, const CIMDataType& dataType);

} // namespace CIMValueCast

} // namespace OpenWBEM

#endif
