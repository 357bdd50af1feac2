#include "JournalProvider.hpp"

namespace
{

class FailingProvider : public JournalProvider
{
  public:
    void initialize(const OpenWBEM::ProviderEnvironmentIFCRef&) override
    {
        throw OpenWBEM::CIMException("Failing.cpp", 1, OpenWBEM::CIMException::FAILED, "not today");
    }
};

} // namespace

OW_PROVIDERFACTORY(FailingProvider, Failing)
