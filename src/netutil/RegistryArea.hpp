#ifndef KV_NETUTIL_REGISTRYAREA_HPP
#define KV_NETUTIL_REGISTRYAREA_HPP

/// The area of the platform's registry that belongs to the management providers.
constexpr int registryArea = 5;

#endif
