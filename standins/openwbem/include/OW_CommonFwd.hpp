#ifndef OW_COMMON_FWD_HPP_
#define OW_COMMON_FWD_HPP_

#include "OW_ArrayFwd.hpp"
#include "OW_IntrusiveReference.hpp"

namespace OpenWBEM
{

class Bool;
class Char16;
class DateTime;
class Exception;
class Logger;
class OperationContext;
class String;
struct LogMessage;

typedef Array<String> StringArray;
typedef Array<Bool> BoolArray;
typedef Array<Char16> Char16Array;
typedef IntrusiveReference<Logger> LoggerRef;

} // namespace OpenWBEM

#endif
