#ifndef KV_RUNCOMMAND_H
#define KV_RUNCOMMAND_H

/*
 * The server's command runner. The functions may be called from any thread.
 */

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Runs a command line through the system shell, waits for the shell to end and collects what was printed.
 * No time limit applies. A command that the line leaves in the background ("... &") is not waited for.
 *
 * command: the line as the shell reads it; it is not examined or quoted.
 * input: text for the command's standard input, or null for none; the provider always passes null.
 * outLines, errLines: receive the lines of standard output and of standard error. Each is an array of
 *     NUL-terminated lines that ends with a null pointer, each line as read with its line break (a last line
 *     may have none). Either may be null when nothing was printed or the command could not be run. The caller
 *     releases each with freeresultbuf, whatever the call returned.
 *
 * Returns the exit status of the command, 0 for success; any other value is a failure, also when the command
 * could not be run.
 */
int runcommand(const char* command, const char* input, char*** outLines, char*** errLines);

/*
 * Releases a line array of runcommand; null is allowed and does nothing.
 */
void freeresultbuf(char** lines);

#ifdef __cplusplus
}
#endif

#endif
