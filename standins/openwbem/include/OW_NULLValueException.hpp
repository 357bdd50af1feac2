#ifndef OW_NULL_VALUE_EXCEPTION_HPP_
#define OW_NULL_VALUE_EXCEPTION_HPP_

#include "OW_Exception.hpp"

namespace OpenWBEM
{

// A value was asked for that is null; the message is the property's name.
OW_DECLARE_EXCEPTION(NULLValue)

} // namespace OpenWBEM

#endif
