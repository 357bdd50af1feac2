#ifndef KV_TESTS_ENVIRONMENT_HPP
#define KV_TESTS_ENVIRONMENT_HPP

#include "World.hpp"

#include <OW_Logger.hpp>
#include <OW_ProviderEnvironmentIFC.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fakes
{

/// A logger whose messages land in the journal as "<name> <category> <message>".
OpenWBEM::LoggerRef recordingLogger(const std::string& name);

/// An environment whose getLogger() gives recordingLogger(loggerName).
OpenWBEM::ProviderEnvironmentIFCRef environment(const std::string& loggerName);

/// Base of the tests: a fresh world, gLogger set to a recording logger "gLogger", a request environment whose
/// logger is "request". Whatever World::problems() finds at the end fails the test. So does an additional
/// descriptor of the process that the world does not know of.
class ServerTest : public ::testing::Test
{
  protected:
    ServerTest();
    ~ServerTest() override;
    void TearDown() override;

    World world;
    OpenWBEM::ProviderEnvironmentIFCRef env;

  private:
    std::size_t m_descriptorsBefore;
};

using Lines = std::vector<std::string>;

} // namespace fakes

#endif
