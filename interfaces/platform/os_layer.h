#ifndef OS_LAYER_H
#define OS_LAYER_H

/*
 * The server's operating-system layer, as far as the LAN provider needs it: the process and the router card
 * ("ZODA one"), an optional plug-in card that can be fitted and pulled while the server runs. The functions
 * may be called from any thread.
 */

#ifdef __cplusplus
extern "C" {
#else
#include <stdbool.h>
#endif

/*
 * Gives the number under which the operating-system layer knows the calling process.
 *
 * pidOut: receives the process id; written on success only.
 *
 * Returns 0 on success, any other code on failure.
 */
int osGetProcessId(int* pidOut);

/*
 * Tells whether the router card is fitted at this moment.
 *
 * presentOut: one byte, 1 when the card is fitted and 0 when it is not; written on success only, so a caller
 *     clears it first.
 *
 * Returns 0 on success, any other code on failure.
 */
int osIsZODAOnePresent(bool* presentOut);

/*
 * Presses the router card's reset button. The reset itself goes on after the call has returned.
 *
 * Returns 0 when the reset has started, 4 when the button could not be pressed, 103 when no router card is
 * fitted, another non-zero code on other failures.
 */
int osResetRouter(void);

#ifdef __cplusplus
}
#endif

#endif
