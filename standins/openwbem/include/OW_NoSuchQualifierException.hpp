#ifndef OW_NO_SUCH_QUALIFIER_EXCEPTION_HPP_
#define OW_NO_SUCH_QUALIFIER_EXCEPTION_HPP_

#include "OW_Exception.hpp"

namespace OpenWBEM
{

// A qualifier was asked for that the element lacks; the message is its name.
OW_DECLARE_EXCEPTION(NoSuchQualifier)

} // namespace OpenWBEM

#endif
