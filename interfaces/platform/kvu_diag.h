#ifndef KVU_DIAG_H
#define KVU_DIAG_H

/* For C too: NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using) */

/*
 * The server's diagnostics log. A program part registers itself as a module with a log file of its own, adds
 * entries under the handle it was given and deregisters when it ends. The functions may be called from any
 * thread.
 */

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A registered module. Valid from KvuDiagRegisterModule to KvuDiagDeregisterModule in the same process. */
typedef unsigned long KvuDiagHandle;

/*
 * Registers a diagnostics module.
 *
 * moduleName, shortName: how the module is named in the log; the provider's marking service passes
 *     "ORX_DSCPService" and "DSCP".
 * flags: the provider passes 0.
 * logFileName: file name without a folder, which the platform chooses; the marking service passes
 *     "ORX_DSCP.log".
 * handleOut: receives the handle; written on success only.
 *
 * Returns 0 on success, any other status on failure.
 */
unsigned int KvuDiagRegisterModule(const char* moduleName, const char* shortName, int flags,
                                   const char* logFileName, KvuDiagHandle* handleOut);

/*
 * Ends a module's registration; its log file stays.
 *
 * Returns 0 on success, any other status on failure, for instance for a handle that is not registered.
 */
unsigned int KvuDiagDeregisterModule(KvuDiagHandle handle);

/*
 * Appends one entry to the module's log file.
 *
 * destination: the provider passes 2.
 * level: 1 error, 4 warning, 8 note of success; other levels are the platform's own.
 * detail: the provider passes -1.
 * text: the entry, NUL-terminated, with or without a line break at its end.
 *
 * Returns 0 on success, any other status on failure.
 */
unsigned int KvuDiagAddLogEntry(KvuDiagHandle handle, int destination, uint16_t level, int detail,
                                const char* text);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-deprecated-headers, modernize-use-using) */

#endif
