#ifndef OW_INSTANCE_PROVIDER_INFO_HPP_
#define OW_INSTANCE_PROVIDER_INFO_HPP_

#include "OW_Array.hpp"
#include "OW_ProviderInfoBase.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

class InstanceProviderInfo : public ProviderInfoBase<InstClassInfo>
{
};

} // namespace OpenWBEM

#endif
