#ifndef KV_TESTS_DSCP_SERVICETEST_HPP
#define KV_TESTS_DSCP_SERVICETEST_HPP

#include "Environment.hpp"
#include "dscp/ORX_ALGService.hpp"
#include "dscp/ORX_ALGServiceInstanceManager.hpp"

#include <string>
#include <vector>

namespace dscptest
{

struct FlowTexts;

using fakes::Lines;
using Qualifiers = ORX_ALGService::Qualifiers;
using Status = ORX_ALGService::Status;

/// The section of the registry that holds the marking settings.
extern const char* const section;

/// Journal lines of the registry and of the diagnostics log.
std::string get(const std::string& key);
std::string set(const std::string& key, unsigned int value);
std::string logged(unsigned int level, const std::string& text);

/// What storing a flow leaves behind whose menu and TOS byte both get `value`, and were another one before.
Lines written(const FlowTexts& flow, unsigned int value);

/// `format` filled in as by printf.
__attribute__((format(printf, 1, 2))) std::string formatted(const char* format, ...);

Lines operator+(Lines first, const Lines& second);

/// The value that a getter delivers, whose status must be 0.
template <typename Service, typename Class, typename Value>
Value valueOf(const Service& service, Status (Class::*get)(Value&, Qualifiers&) const)
{
    Value value{};
    Qualifiers qualifiers;
    EXPECT_EQ((service.*get)(value, qualifiers), 0u);
    EXPECT_EQ(qualifiers.size(), 0u);
    return value;
}

/// Starts with the default manager and without services; leaves nothing behind.
class ServiceTest : public fakes::ServerTest
{
  protected:
    ServiceTest();
    ~ServiceTest() override;

    Lines registryAndLog() const { return world.journal(fakes::Registry | fakes::Diag); }
    void store(const std::string& key, std::uint16_t value) { world.registry[{section, key}] = value; }

    ORX_ALGServiceInstanceManager* const defaultManager;
};

} // namespace dscptest

#endif
