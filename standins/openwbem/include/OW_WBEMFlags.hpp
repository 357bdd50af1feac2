#ifndef OW_WBEM_FLAGS_HPP_
#define OW_WBEM_FLAGS_HPP_

namespace OpenWBEM
{

// Options of the CIM operations (DMTF DSP0200, intrinsic methods).
namespace WBEMFlags
{

enum EDeepFlag { E_SHALLOW = 0, E_DEEP = 1 };
enum ELocalOnlyFlag { E_NOT_LOCAL_ONLY = 0, E_LOCAL_ONLY = 1 };
enum EIncludeQualifiersFlag { E_EXCLUDE_QUALIFIERS = 0, E_INCLUDE_QUALIFIERS = 1 };
enum EIncludeClassOriginFlag { E_EXCLUDE_CLASS_ORIGIN = 0, E_INCLUDE_CLASS_ORIGIN = 1 };

} // namespace WBEMFlags

} // namespace OpenWBEM

#endif
