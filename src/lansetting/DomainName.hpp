#ifndef KV_LANSETTING_DOMAINNAME_HPP
#define KV_LANSETTING_DOMAINNAME_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// Whether `name` may become the server's DNS domain: a letter followed by any number of letters, digits,
/// dots and hyphens, in ASCII whatever the process's locale. Any length passes, and so do repeated and
/// trailing dots and hyphens. A name that passes is one word of a command line, and no more.
bool isValidDomainName(const OpenWBEM::String& name);

/// The domain of an official host name: the text after its first dot, empty when there is no dot.
OpenWBEM::String domainOf(const OpenWBEM::String& hostName);

#endif
