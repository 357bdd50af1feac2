/*
 * Plays the packet filter's driver in the process that preloads it: an ioctl that reaches /dev/kv_netfilter
 * with one of the driver's four requests is recorded, one line "<request> <value>" each, in the file that
 * KV_NETFILTER_LOG names, and succeeds. A line that cannot be written fails the ioctl with EIO. Every other
 * ioctl goes to the kernel untouched.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <inttypes.h>
#include <stdarg.h>
#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

/* The driver's requests as the server's kernel encodes them: type 0xAB, numbers 2 to 5, a 32-bit value
 * written by address. */
enum { FIRST_REQUEST = 2, LAST_REQUEST = 5 };
static const uint32_t requestBase = 0x8004AB00U;

__attribute__((constructor)) static void stayInThisProcess(void)
{
    unsetenv("LD_PRELOAD");
}

typedef int (*IoctlFunction)(int, unsigned long, ...);

/* ISO C has no cast from the object pointer that dlsym returns to a function pointer. */
static IoctlFunction nextIoctl(void)
{
    void* symbol = dlsym(RTLD_NEXT, "ioctl");
    IoctlFunction function = NULL;
    memcpy(&function, &symbol, sizeof function);
    return function;
}

static bool isDriverRequest(uint32_t request)
{
    return request >= requestBase + FIRST_REQUEST && request <= requestBase + LAST_REQUEST;
}

static bool isDevice(int fd)
{
    struct stat opened;
    struct stat device;
    return fstat(fd, &opened) == 0 && stat("/dev/kv_netfilter", &device) == 0 &&
           opened.st_dev == device.st_dev && opened.st_ino == device.st_ino;
}

static bool record(uint32_t request, uint32_t value)
{
    const char* path = getenv("KV_NETFILTER_LOG");
    int log = path == NULL ? -1 : open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (log < 0) {
        return false;
    }
    bool written = dprintf(log, "0x%08" PRIX32 " %" PRIu32 "\n", request, value) > 0;
    return close(log) == 0 && written;
}

int ioctl(int fd, unsigned long request, ...)
{
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);

    /* The kernel looks at the low 32 bits only, too. */
    const uint32_t number = (uint32_t)request;
    if (!isDriverRequest(number) || !isDevice(fd)) {
        return nextIoctl()(fd, request, argument);
    }
    if (record(number, *(const uint32_t*)argument)) {
        return 0;
    }
    errno = EIO;
    return -1;
}
