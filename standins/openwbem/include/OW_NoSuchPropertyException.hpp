#ifndef OW_NO_SUCH_PROPERTY_EXCEPTION_HPP_
#define OW_NO_SUCH_PROPERTY_EXCEPTION_HPP_

#include "OW_Exception.hpp"

namespace OpenWBEM
{

// A property was asked for that the object lacks; the message is its name.
OW_DECLARE_EXCEPTION(NoSuchProperty)

} // namespace OpenWBEM

#endif
