#ifndef OW_ARRAY_FWD_HPP_
#define OW_ARRAY_FWD_HPP_

namespace OpenWBEM
{

template <class T>
class Array;

} // namespace OpenWBEM

#endif
