#ifndef KV_DSCP_ORX_ALGSERVICEIMPLINSTANCEMANAGER_HPP
#define KV_DSCP_ORX_ALGSERVICEIMPLINSTANCEMANAGER_HPP

#include "dscp/ORX_ALGServiceInstanceManager.hpp"

#include <cstdint>
#include <string>

/// Creates marking services whose settings live in the server's registry.
class ORX_ALGServiceImplInstanceManager : public ORX_ALGServiceInstanceManager
{
  public:
    /// Registers the diagnostics module, deletes the objects held and builds the one service of this server
    /// from the registry; what cannot be read is logged and starts as 0. Returns 0, or the status with which
    /// the module could not be registered; then there is no service.
    std::uint32_t init() override;

    ORX_ALGService* createORX_ALGService(const std::string& systemCreationClassName,
                                         const std::string& systemName, const std::string& creationClassName,
                                         const std::string& name) override;

    /// Also ends the registration of the diagnostics module. `service` may be null.
    void destroyORX_ALGService(ORX_ALGService* service) override;
};

#endif
