#include "dscp/ORX_ALGServiceImplInstanceManager.hpp"

#include "dscp/MarkingFlow.hpp"
#include "dscp/ORX_ALGServiceImpl.hpp"
#include "dscp/StoredMarking.hpp"
#include "dscp/dscLog.hpp"

namespace
{

using dscp::MarkingFlow;

void loadEnabled(ORX_ALGService& service)
{
    std::uint16_t value = 0;
    if (const unsigned int readRc = dscp::readSetting(dscp::enabledKey, value); readRc != 0) {
        dscLogFormat(
            DscLogWarning,
            "ORX_ALGServiceImplInstanceManager:init(): failed to read KLEnabled from the PDR, PDR entry may "
            "not exist, create it with default value !, rc: 0x%08X\n",
            readRc);
        // Log filters match the double colon of this one message.
        if (const unsigned int writeRc = dscp::writeSetting(dscp::enabledKey, 0); writeRc != 0)
            dscLogFormat(DscLogError,
                         "ORX_ALGServiceImplInstanceManager::init(): failed to create and write default "
                         "KLonKLEnabled into the PDR, rc: 0x%08X\n",
                         writeRc);
        value = 0; // whatever the registry may have left there
    }
    service.setKLonKLEnabled(value != 0);
}

std::uint16_t readAtStart(const char* key, const char* name)
{
    std::uint16_t value = 0;
    if (const unsigned int rc = dscp::readSetting(key, value); rc != 0) {
        dscLogFormat(DscLogError,
                     "ORX_ALGServiceImplInstanceManager:init(): failed to read %s from the PDR, rc: 0x%08X\n",
                     name, rc);
        return 0; // whatever the registry may have left there
    }
    return value;
}

std::uint32_t loadMarking(ORX_ALGService& service, const MarkingFlow& flow)
{
    const std::uint16_t menu = readAtStart(flow.menuKey, flow.menuReadName);
    (service.*flow.setMenu)(menu);
    if (menu != dscp::customMenu)
        return (service.*flow.setTosByte)(menu);
    return (service.*flow.setTosByte)(readAtStart(flow.tosByteKey, flow.tosByteName));
}

} // namespace

std::uint32_t ORX_ALGServiceImplInstanceManager::init()
{
    if (const unsigned int rc =
            KvuDiagRegisterModule("ORX_DSCPService", "DSCP", 0, "ORX_DSCP.log", &dscDiagHandle_g);
        rc != 0)
        return rc;

    startIteration();
    while (hasNext())
        delete next();
    endIteration();

    dscLogLevel(DscLogUnused, DscLogNote,
                "ORX_ALGServiceImplInstanceManager:init(): Create ORX_ALGService\n");
    ORX_ALGService& service = *createORX_ALGService("SCCN", "SN", "CCN", "Name");
    loadEnabled(service);
    std::uint32_t status = ORX_ALGService::Done;
    for (const MarkingFlow& flow : dscp::markingFlows)
        status = loadMarking(service, flow);
    return status; // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the service has registered itself
}

ORX_ALGService* ORX_ALGServiceImplInstanceManager::createORX_ALGService(
    const std::string& systemCreationClassName, const std::string& systemName,
    const std::string& creationClassName, const std::string& name)
{
    return new ORX_ALGServiceImpl(systemCreationClassName, systemName, creationClassName, name);
}

void ORX_ALGServiceImplInstanceManager::destroyORX_ALGService(ORX_ALGService* service)
{
    KvuDiagDeregisterModule(dscDiagHandle_g);
    delete service;
}
