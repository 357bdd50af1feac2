#ifndef KV_LANSETTING_RESOLVERTEXT_HPP
#define KV_LANSETTING_RESOLVERTEXT_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// The text work on a resolver file (resolv.conf(5)). Keywords are looked for as substrings, anywhere in a
/// line and in comments too; the server's other tools and its operators rely on it.

/// What is kept of a resolver file: the lines that a later write starts from, and the first two name servers
/// (dotted IPv4 text as it stands in the file, or empty).
struct ResolverText {
    OpenWBEM::String contents;
    OpenWBEM::String primaryDNS;
    OpenWBEM::String secondaryDNS;

    /// Takes in the next line of the file, its line break included:
    /// - a line whose first character is '#' is kept;
    /// - a line with "search" and one domain is kept, after it has been made to name `domainName`;
    /// - a line with "nameserver" and one address is kept, and the first two addresses are noted;
    /// - any other line is dropped. Kept: the next write loses it from the file.
    /// Returns false at the third name server, where the reading ends: the resolver itself would look no
    /// further.
    bool addLine(const OpenWBEM::String& line, const OpenWBEM::String& domainName);

  private:
    void addSearchLine(const OpenWBEM::String& line, const OpenWBEM::String& domainName);
    bool addNameserverLine(const OpenWBEM::String& line);
};

/// `contents` with `name` in place of whatever follows the first "search" on its line. Without a "search" a
/// search line is added at the end.
OpenWBEM::String withSearchDomain(const OpenWBEM::String& contents, const OpenWBEM::String& name);

/// `contents` with `address` in place of whatever follows the occurrence number `index` (from 0) of
/// "nameserver" on its line. An empty address removes the keyword and the rest of its line instead. Without
/// such an occurrence, or with a negative number, a nameserver line is added at the end. Kept: it is added
/// for an empty address, too.
OpenWBEM::String withNameserver(const OpenWBEM::String& contents, const OpenWBEM::String& address, int index);

#endif
