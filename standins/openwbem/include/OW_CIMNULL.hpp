#ifndef OW_CIMNULL_HPP_
#define OW_CIMNULL_HPP_

namespace OpenWBEM
{

// Constructor argument that makes a CIM object null.
enum CIMNULL_t { CIMNULL };

} // namespace OpenWBEM

#endif
