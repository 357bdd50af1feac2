#ifndef OW_COMMON_FWD_HPP_
#define OW_COMMON_FWD_HPP_

#include "OW_ArrayFwd.hpp"
#include "OW_Types.hpp"

namespace OpenWBEM
{

class Bool;
class Char16;
class DateTime;
class Exception;
class IntrusiveCountableBase;
class Logger;
class OperationContext;
class SharedLibrary;
class String;
struct LogMessage;

template <class T>
class IntrusiveReference;
template <class T>
class SharedLibraryReference;

typedef Array<String> StringArray;
typedef Array<Bool> BoolArray;
typedef Array<Char16> Char16Array;
typedef IntrusiveReference<Logger> LoggerRef;
typedef IntrusiveReference<SharedLibrary> SharedLibraryRef;

} // namespace OpenWBEM

#endif
