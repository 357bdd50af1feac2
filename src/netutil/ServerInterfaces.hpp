#ifndef KV_NETUTIL_SERVERINTERFACES_HPP
#define KV_NETUTIL_SERVERINTERFACES_HPP

/// One Ethernet interface of the server.
struct ServerInterface {
    const char* name;        ///< the kernel's
    const char* description; ///< the operators'
};

/// All of them: each is published to management clients, and gets its stored MTU at start-up. The interface
/// in row n is named "eth" and n.
inline constexpr ServerInterface serverInterfaces[] = {
    {"eth0", "Internal LAN"},
    {"eth1", "Customer LAN"},
    {"eth2", "OAM LAN"},
};

inline constexpr const char* internalLanName = serverInterfaces[0].name;
inline constexpr const char* customerLanName = serverInterfaces[1].name;

#endif
