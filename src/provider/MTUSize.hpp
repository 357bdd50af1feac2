#ifndef KV_PROVIDER_MTUSIZE_HPP
#define KV_PROVIDER_MTUSIZE_HPP

/// Brings the MTU of one interface in line with the registry at start-up. A stored "MTUSize" is applied to
/// the interface, whatever MTU it had. Where none is stored, the interface's own is stored and set again
/// unchanged. A failing registry leaves the interface alone. Throws nothing. Only a socket that cannot be
/// opened is reported, through perror.
void setMTUSize(const char* ifName);

#endif
