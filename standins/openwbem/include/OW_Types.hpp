#ifndef OW_TYPES_HPP_
#define OW_TYPES_HPP_

#include "OW_config.h"
#include <climits>
#include <cstddef>

namespace OpenWBEM
{

typedef unsigned char UInt8;
typedef signed char Int8;
typedef unsigned short UInt16;
typedef short Int16;
typedef unsigned int UInt32;
typedef int Int32;
#if ULONG_MAX > 0xffffffffUL
typedef unsigned long UInt64;
typedef long Int64;
#else
typedef unsigned long long UInt64;
typedef long long Int64;
// long is neither Int32 nor Int64 here, so overload sets that should accept it need overloads of their own.
#define OW_LONG_IS_A_TYPE_OF_ITS_OWN 1
#endif
typedef float Real32;
typedef double Real64;

} // namespace OpenWBEM

#endif
