#ifndef KVU_REGISTRY_H
#define KVU_REGISTRY_H

/* For C too: NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using) */

/*
 * The server's registry, also called the persistent data repository (PDR): small values that survive a
 * restart, each found by an area, a key path and a value name.
 *
 * Key paths separate their levels with a back-slash ("providers\ORX_LANProvider\eth0"); paths and names are
 * NUL-terminated text and compared byte by byte, so upper and lower case differ. Values travel in the host's
 * byte order. The functions may be called from any thread and from several processes at once; a single call
 * reads or writes its value whole.
 *
 * area: the part of the registry. The provider always passes 5, the area of the management providers.
 */

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Reads one unsigned 16-bit value (0 to 65535) into *out.
 *
 * Returns 0 on success; 2097165 (0x20000D) when there is no such value; another non-zero status on any other
 * failure. *out is written on success only.
 */
unsigned int KvuGetRegEntryUint16Ex(int area, const char* keyPath, const char* valueName, uint16_t* out);

/*
 * Writes one unsigned 16-bit value, creating the key and the value if needed.
 *
 * Returns 0 when the value is stored for good, any other status on failure, which leaves the earlier value.
 */
unsigned int KvuSetRegEntryUint16Ex(int area, const char* keyPath, const char* valueName, uint16_t value);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-deprecated-headers, modernize-use-using) */

#endif
