/* Sets the clock of the process that preloads this, not the machine's: CLOCK_SHIFT names a file with the
   seconds by which it is ahead, and is read at every look at the clock. Clocks that nobody can set go on as
   they are. */
#define _GNU_SOURCE
#include <stdio.h>
#include <stdlib.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

static time_t shift(void)
{
    const char* path = getenv("CLOCK_SHIFT");
    FILE* file = path != NULL ? fopen(path, "r") : NULL;
    long seconds = 0;
    if (file == NULL)
        return 0;
    if (fscanf(file, "%ld", &seconds) != 1)
        seconds = 0;
    fclose(file);
    return seconds;
}

int clock_gettime(clockid_t clock, struct timespec* now)
{
    const int result = (int)syscall(SYS_clock_gettime, clock, now);
    if (result == 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE))
        now->tv_sec += shift();
    return result;
}

int gettimeofday(struct timeval* restrict now, void* restrict zone)
{
    struct timespec time = {0, 0};
    (void)zone;
    clock_gettime(CLOCK_REALTIME, &time);
    now->tv_sec = time.tv_sec;
    now->tv_usec = time.tv_nsec / 1000;
    return 0;
}

time_t time(time_t* result)
{
    struct timespec now = {0, 0};
    clock_gettime(CLOCK_REALTIME, &now);
    if (result != NULL)
        *result = now.tv_sec;
    return now.tv_sec;
}
