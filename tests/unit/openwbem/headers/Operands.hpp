// What the recorded expressions name.
#ifndef TESTS_UNIT_OPENWBEM_HEADERS_OPERANDS_HPP
#define TESTS_UNIT_OPENWBEM_HEADERS_OPERANDS_HPP

#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIM.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_Char16.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"
#include "OW_DateTime.hpp"
#include "OW_Exception.hpp"
#include "OW_InstanceProviderInfo.hpp"
#include "OW_LogMessage.hpp"
#include "OW_Logger.hpp"
#include "OW_MethodProviderInfo.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "OW_NoSuchQualifierException.hpp"
#include "OW_OperationContext.hpp"
#include "OW_ProviderEnvironmentIFC.hpp"
#include "OW_RepositoryIFC.hpp"
#include "OW_ResultHandlerIFC.hpp"
#include "OW_ResultHandlers.hpp"
#include "OW_String.hpp"
#include "OW_WBEMFlags.hpp"
#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace OpenWBEM;
using namespace OpenWBEM::WBEMFlags;

#define YES(...) std::integral_constant<bool, __VA_ARGS__::value>()
#define CONV(FROM, TO) YES(std::is_convertible<FROM, TO>)
#define MAKE(...) YES(std::is_constructible<__VA_ARGS__>)

// True for every type that there is.
template <class>
struct Accepted : std::true_type {
};

// An object and, with a c before its name, a constant one.
#define BOTH(TYPE, NAME)                                                                                     \
    extern TYPE NAME;                                                                                        \
    extern const TYPE c##NAME;

BOTH(String, s)
BOTH(Bool, b)
BOTH(Char16, h)
BOTH(CIMName, n)
BOTH(CIMDataType, t)
BOTH(CIMDateTime, d)
BOTH(DateTime, e)
BOTH(CIMValue, v)
BOTH(CIMProperty, p)
BOTH(CIMQualifier, q)
BOTH(CIMParamValue, m)
BOTH(CIMInstance, i)
BOTH(CIMObjectPath, o)
BOTH(CIMClass, c)
BOTH(CIMMethod, me)
BOTH(CIMParameter, pa)
BOTH(CIMQualifierType, qt)
BOTH(CIMFlavor, f)
BOTH(CIMException, x)
BOTH(StringArray, sa)
BOTH(UInt16Array, ua)
BOTH(CIMPropertyArray, ppa)
BOTH(LoggerRef, lr)
BOTH(InstanceProviderInfo, ii)
BOTH(MethodProviderInfo, mi)
BOTH(CppProviderBaseIFCRef, pr)
extern const Exception& ex;
extern Logger& lg;
extern const Logger& clg;
extern OperationContext& oc;
extern const OperationContext& coc;
extern ProviderEnvironmentIFC& env;
extern const ProviderEnvironmentIFC& cenv;
extern CppProviderBaseIFC& pb;
extern const CppProviderBaseIFC& cpb;
extern CppInstanceProviderIFC& ip;
extern CppMethodProviderIFC& mp;
extern CIMBase& cba;
extern const CIMBase& ccba;
extern CIMElement& el;
extern const CIMElement& cel;
extern std::ostream& os;
extern std::istream& is;
extern UInt8 u8;
extern Int8 i8;
extern UInt16 u16;
extern Int16 i16;
extern UInt32 u32;
extern Int32 i32;
extern UInt64 u64;
extern Int64 i64;
extern Real32 r32;
extern Real64 r64;
extern bool bo;
extern char chr;
extern long lo;
extern long long ll;
extern unsigned long long ull;
extern size_t sz;
extern const char* ccp;
extern char* cpn;
extern void* vp;
extern std::string ss;

#endif
