#include "dscp/ORX_ALGServiceImpl.hpp"

#include "dscp/StoredMarking.hpp"
#include "dscp/dscLog.hpp"

namespace
{

using dscp::Marking;
using dscp::MarkingFlow;

// Bits of the outcome of writing both values of a flow.
constexpr unsigned int menuFailed = 1;
constexpr unsigned int tosByteFailed = 2;

unsigned int writeBoth(const MarkingFlow& flow, const Marking& marking)
{
    unsigned int failures = 0;
    if (const unsigned int rc = dscp::writeSetting(flow.menuKey, marking.menu); rc != 0) {
        dscLogFormat(DscLogError,
                     "ORX_ALGServiceImpl:endChange(): failed to write new %s: %d into the PDR, rc: 0x%08X\n",
                     flow.menuWriteFailureName, marking.menu, rc);
        failures += menuFailed;
    }
    if (const unsigned int rc = dscp::writeSetting(flow.tosByteKey, marking.tosByte); rc != 0) {
        dscLogFormat(DscLogError,
                     "ORX_ALGServiceImpl:endChange(): failed to write new %s: %d into the PDR, rc: 0x%08X\n",
                     flow.tosByteName, marking.tosByte, rc);
        failures += tosByteFailed;
    }
    return failures;
}

// Each case also logs what the cases below it log. So a menu value that failed is logged as written: readers
// of the log count these lines.
void logWritten(unsigned int failures, const MarkingFlow& flow, const Marking& marking)
{
    switch (failures) {
    case 0:
        dscLogLevelFormat(DscLogUnused, DscLogNote,
                          "ORX_ALGServiceImpl:endChange(): Wrote new %s: %d and %s: %d into the PDR\n",
                          flow.menuName, marking.menu, flow.tosByteName, marking.tosByte);
        [[fallthrough]];
    case menuFailed:
        dscLogLevelFormat(DscLogUnused, DscLogNote,
                          "ORX_ALGServiceImpl:endChange(): Wrote new %s: %d into the PDR\n", flow.tosByteName,
                          marking.tosByte);
        [[fallthrough]];
    case tosByteFailed:
        dscLogLevelFormat(DscLogUnused, DscLogNote,
                          "ORX_ALGServiceImpl:endChange(): Wrote new %s: %d into the PDR\n", flow.menuName,
                          marking.menu);
        break;
    default:
        break;
    }
}

// Kept: what a failed read leaves behind, 0 as a rule, is compared with the object like a stored value.
std::uint16_t readToCompare(const char* key, const char* name)
{
    std::uint16_t stored = 0;
    if (const unsigned int rc = dscp::readSetting(key, stored); rc != 0)
        dscLogFormat(DscLogError,
                     "ORX_ALGServiceImpl:endChange(): failed to read %s from the PDR, rc: 0x%08X\n", name,
                     rc);
    return stored;
}

void storeCustomTosByte(const MarkingFlow& flow, std::uint16_t tosByte)
{
    if (readToCompare(flow.tosByteKey, flow.tosByteName) == tosByte)
        return;
    if (const unsigned int rc = dscp::writeSetting(flow.tosByteKey, tosByte); rc != 0)
        dscLogFormat(
            DscLogError,
            "ORX_ALGServiceImpl:endChange(): failed to write custom %s: %d into the PDR, rc: 0x%08X\n",
            flow.tosByteName, tosByte, rc);
    else
        dscLogLevelFormat(DscLogUnused, DscLogNote,
                          "ORX_ALGServiceImpl:endChange(): Wrote custom %s: %d into the PDR\n",
                          flow.tosByteName, tosByte);
}

void store(const MarkingFlow& flow, const Marking& marking)
{
    if (readToCompare(flow.menuKey, flow.menuReadName) != marking.menu)
        logWritten(writeBoth(flow, marking), flow, marking);
    else if (marking.menu == dscp::customMenu)
        storeCustomTosByte(flow, marking.tosByte);
}

} // namespace

ORX_ALGService::Status ORX_ALGServiceImpl::endChange()
{
    storeEnabled();
    for (Marking& marking : markings) {
        if (marking.menu != dscp::customMenu)
            marking.tosByte = marking.menu;
    }
    for (std::size_t i = 0; i < markings.size(); ++i)
        store(dscp::markingFlows[i], markings[i]);
    return Done;
}

// Switching marking on or off replaces all markings, also those that the same request has just set.
void ORX_ALGServiceImpl::storeEnabled()
{
    // Compared as numbers: a stored 2 is neither true nor false and is replaced.
    const std::uint16_t value = enabled ? 1 : 0;
    if (readToCompare(dscp::enabledKey, "KLonKLEnabled") == value)
        return;
    if (const unsigned int rc = dscp::writeSetting(dscp::enabledKey, value); rc != 0)
        dscLogFormat(DscLogError,
                     "ORX_ALGServiceImpl:endChange(): failed to write new KLonKLEnabled: %d into the PDR, "
                     "rc: 0x%08X\n",
                     value, rc);
    applyPresets();
}

void ORX_ALGServiceImpl::applyPresets()
{
    for (const MarkingFlow& flow : dscp::markingFlows) {
        const std::uint16_t preset = enabled ? flow.presetEnabled : flow.presetDisabled;
        (this->*flow.setTosByte)(preset);
        (this->*flow.setMenu)(preset);
    }
}
