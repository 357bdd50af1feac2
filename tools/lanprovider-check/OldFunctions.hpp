// Included before all else in a build for the server. The build machine's C library has newer versions of
// these functions, which do the same and which the server's C library lacks; there they are in libdl.so.2.

#ifndef LANPROVIDER_CHECK_OLDFUNCTIONS_HPP
#define LANPROVIDER_CHECK_OLDFUNCTIONS_HPP

__asm__(".symver dlopen, dlopen@GLIBC_2.1");
__asm__(".symver dlsym, dlsym@GLIBC_2.0");
__asm__(".symver dlclose, dlclose@GLIBC_2.0");
__asm__(".symver dlerror, dlerror@GLIBC_2.0");

#endif
