#ifndef OPENWBEM_SRC_COW_DATA_HPP_
#define OPENWBEM_SRC_COW_DATA_HPP_

#include "OW_COWReference.hpp"

namespace OpenWBEM
{

// Base of what the handles of one class share: data types get their clone() from it.
template <class Derived>
class COWData : public COWCountable
{
  public:
    COWCountable* clone() const override { return new Derived(static_cast<const Derived&>(*this)); }
};

} // namespace OpenWBEM

#endif
