#ifndef KV_TESTS_ENDPOINTSERVER_HPP
#define KV_TESTS_ENDPOINTSERVER_HPP

#include "Environment.hpp"

#include <OW_String.hpp>

#include <string>

namespace fakes
{

/// A server whose three interfaces have fixed addresses in networks of their own:
/// eth0 192.168.0.1, eth1 10.0.0.5, eth2 172.16.0.1, all with mask 255.255.255.0; default gateway 10.0.0.1.
class EndpointServer : public ServerTest
{
  protected:
    EndpointServer();

    static std::string fileOf(const std::string& ifName);
    void writeInterfaceFile(const std::string& ifName, const std::string& content);
    /// Both the file and what the platform reports of the interface.
    void configureStatic(const std::string& ifName, const std::string& address, const std::string& mask);
    /// The file says DHCP; the platform reports the address in force.
    void configureDhcp(const std::string& ifName, const std::string& address, const std::string& mask);
};

// Pieces of the journal.

/// The lines of both, in this order. Lines are vectors of the standard library, so a test names this
/// operator.
Lines operator+(const Lines& first, const Lines& second);

/// What reading the stored configuration does.
Lines reading(const std::string& ifName);

/// What the checks of address, mask and gateway do when all pass.
Lines checking(const std::string& ifName, const std::string& address, const std::string& gateway);

/// A command line under the DHCP LAN semaphore.
Lines bracketed(const std::string& command);

/// Stop voice messaging, restart the interface, start voice messaging.
Lines restart(const std::string& ifName);

/// The notice to the DHCP service, which eth0 does not give.
Lines dhcpNotice(const std::string& ifName);

/// The successful notice to the element-management service.
Lines emsNotice(const std::string& ifName);

/// All that a change of the address, mask or gateway does to the server.
Lines addressChange(const std::string& ifName, const std::string& address);
Lines maskChange(const std::string& ifName, const std::string& mask);
Lines gatewayChange(const std::string& ifName, const std::string& oldGateway, const std::string& gateway);

} // namespace fakes

#endif
