# Toolchain of the server's processor, 32-bit big-endian PowerPC, as Debian packages it (g++-powerpc-linux-gnu). For another
# cross compiler with C++17 use another toolchain file (--toolchain).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR powerpc)

set(CMAKE_C_COMPILER powerpc-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER powerpc-linux-gnu-g++)

# The server's C and C++ libraries are older than this compiler. What is built asks as little of them as possible: strings
# of the first library ABI, no sized delete, and a symbol table that loaders without GNU hashes find.
set(CMAKE_CXX_FLAGS_INIT "-D_GLIBCXX_USE_CXX11_ABI=0 -fno-sized-deallocation")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-Wl,--hash-style=both")

set(CMAKE_FIND_ROOT_PATH /usr/powerpc-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs for the target run here through qemu, the tests above all.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-ppc -L /usr/powerpc-linux-gnu)
