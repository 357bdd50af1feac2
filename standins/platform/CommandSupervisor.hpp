#ifndef KVPLATFORM_COMMANDSUPERVISOR_HPP
#define KVPLATFORM_COMMANDSUPERVISOR_HPP

#include "FileDescriptor.hpp"

#include <sys/types.h>

namespace kvplatform
{

/** The supervisor gives its descriptors the numbers 0 to 5; the originals have to lie above them. */
constexpr int kFirstFreeDescriptor = 6;

/** The supervisor's descriptors, all from kFirstFreeDescriptor up. */
struct SupervisorEnds {
    FileDescriptor input;       ///< what the command reads
    FileDescriptor outputWrite; ///< what the command writes to
    FileDescriptor errorWrite;
    FileDescriptor control; ///< a stream socket to the starter, who shuts it down to end the supervisor
    int outputRead =
        -1; ///< the starter's ends of the same pipes, which the supervisor drains after the starter
    int errorRead = -1;
};

/**
 * Starts a process between the host and the shell that runs a command. The host may ignore SIGCHLD, or reap
 * every child in a handler; either would lose the shell's status, so the shell is the supervisor's child.
 *
 * As soon as the shell has ended, the supervisor sends its exit status as an int through the control socket:
 * 128 and the signal's number for a shell that was killed, -1 when none could be started. It ends when the
 * control socket is shut down. Commands still running in the background are then given a reader of their own,
 * so that they are not killed for writing to a pipe that nobody reads.
 *
 * The command gets the descriptors 0, 1 and 2, no others, and default signal handling.
 *
 * @return the supervisor's process id; -1, with errno, when it could not be started
 */
pid_t startSupervisor(const char* command, const SupervisorEnds& ends);

/** Waits for the supervisor's end, unless the host has already done so. */
void reapSupervisor(pid_t supervisor);

} // namespace kvplatform

#endif
