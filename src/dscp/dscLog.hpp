#ifndef KV_DSCP_DSCLOG_HPP
#define KV_DSCP_DSCLOG_HPP

#include <kvu_diag.h>

/// The marking service's diagnostics, written to the server's diagnostics log (module "ORX_DSCPService", file
/// "ORX_DSCP.log").

/// The registered module; filled by KvuDiagRegisterModule when the service is built.
extern KvuDiagHandle dscDiagHandle_g;

/// Levels of the diagnostics log.
constexpr unsigned long DscLogError = 1;
constexpr unsigned long DscLogWarning = 4;
constexpr unsigned long DscLogNote = 8;

/// What callers pass as the first argument of dscLogLevel and dscLogLevelFormat. Nothing reads it.
constexpr unsigned long DscLogUnused = 3;

/// Appends `text` as it stands.
void dscLogLevel(unsigned long unused, unsigned long level, const char* text);

/// Appends a text formatted as by printf and cut to 255 characters.
__attribute__((format(printf, 2, 3))) void dscLogFormat(unsigned long level, const char* format, ...);

/// The same with an argument that is not used.
__attribute__((format(printf, 3, 4))) void dscLogLevelFormat(unsigned long unused, unsigned long level,
                                                             const char* format, ...);

#endif
