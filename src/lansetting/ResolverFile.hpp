#ifndef KV_LANSETTING_RESOLVERFILE_HPP
#define KV_LANSETTING_RESOLVERFILE_HPP

#include "lansetting/ResolverText.hpp"

/// The resolver's configuration, resolv.conf(5).
inline constexpr char resolveFile[] = "/etc/resolv.conf";

/// Reads what is kept of the resolver file when the server's domain is `domainName`. Of a file that cannot be
/// opened nothing is kept.
ResolverText readResolverFile(const OpenWBEM::String& domainName);

/// Replaces the resolver file's contents. False when it cannot be opened.
bool writeResolverFile(const OpenWBEM::String& contents);

#endif
