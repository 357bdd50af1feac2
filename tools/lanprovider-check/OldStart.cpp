// The start of a program for the server. The start-up code that the linker adds calls the newest version of
// __libc_start_main, which the server's C library lacks; the linker lets it call the function below instead,
// and that one calls the first version. Both do the same for a program without static objects, as this one
// is.

#include <cstdint>

// On this processor all seven arguments are the size of a pointer and travel in registers.
using Argument = std::uintptr_t;

__asm__(".symver firstStart, __libc_start_main@GLIBC_2.0");

extern "C" int firstStart(Argument, Argument, Argument, Argument, Argument, Argument, Argument);
// The linker's names.
extern "C" int __wrap___libc_start_main(Argument, Argument, Argument, Argument, Argument, Argument, Argument);

extern "C" int __wrap___libc_start_main(Argument argumentCount, Argument arguments, Argument environment,
                                        Argument auxiliary, Argument atExit, Argument startInfo,
                                        Argument stack)
{
    return firstStart(argumentCount, arguments, environment, auxiliary, atExit, startInfo, stack);
}
