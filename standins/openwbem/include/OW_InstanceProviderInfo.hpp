#ifndef OW_INSTANCE_PROVIDER_INFO_HPP_
#define OW_INSTANCE_PROVIDER_INFO_HPP_

#include "OW_ProviderInfoBase.hpp"

namespace OpenWBEM
{

class InstanceProviderInfo : public ProviderInfoBase<InstClassInfo>
{
};

} // namespace OpenWBEM

#endif
