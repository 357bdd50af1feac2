#ifndef KV_CONFIG_NETFILTERCONFIG_HPP
#define KV_CONFIG_NETFILTERCONFIG_HPP

/// The packet filter's switches as they survive a restart: one line each in /kv/etc/kv_netfilter.cfg, which
/// the server's installation provides and only these functions touch. The running kernel is told elsewhere.
///
/// Keys are "kv_netfilter_icmp", "kv_netfilter_arp", "kv_netfilter_broadcast" and "kv_netfilter_ipconflict".
/// Values are 0 for off and anything else for on. Each call opens and reads the file for itself, and nothing
/// locks it.

/// Reads one switch into `*value`: 0 when the file, the key, its value or a leading digit is missing.
/// Returns 0, or -1 when `value` is null.
int kv_get_netfilter_config(const char* key, unsigned* value);

/// Stores one switch if the file has a line for it, and rewrites the file. The former file is kept under its
/// name with ".0" appended. Values above INT_MAX come out negative. Always returns 0: failures of the file
/// are not reported.
int kv_set_netfilter_config(const char* key, unsigned value);

#endif
