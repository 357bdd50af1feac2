#ifndef KV_BENCH_REPLAY_H
#define KV_BENCH_REPLAY_H

/*
 * The system calls and platform calls of the library's read operations, in their order, and nothing else:
 * what an operation would cost if it did no work of its own. Plain C on purpose.
 */

#ifdef __cplusplus
extern "C" {
#endif

/* The queries of one interface. */
void replayMtu(const char* ifName);
void replaySpeed(const char* ifName);
void replayStatus(const char* ifName); /* the same calls for the enabled state and the operational status */

/* What filling one ORX_LANEndpoint takes. */
void replayEndpoint(const char* ifName);

/* What filling the one ORX_LANServiceSetting takes. */
void replaySetting(void);

#ifdef __cplusplus
}
#endif

#endif
