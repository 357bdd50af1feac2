#ifndef KV_LANSETTING_DOMAINNAME_HPP
#define KV_LANSETTING_DOMAINNAME_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// Whether `name` may become the server's DNS domain: a letter followed by any number of letters, digits,
/// dots and hyphens, in ASCII whatever the process's locale. Neither length nor repeated or trailing dots and
/// hyphens matter. Nothing that passes can be anything but one word of a command line.
bool isValidDomainName(const OpenWBEM::String& name);

/// The domain of an official host name: the text after its first dot, empty when there is no dot.
OpenWBEM::String domainOf(const OpenWBEM::String& hostName);

#endif
