// The C library's own functions behind those that the tests take over, by the names that the linker's option
// --wrap gives them.
#pragma once

#include <cstdio>

struct hostent;

extern "C" {
int __real_socket(int domain, int type, int protocol);
int __real_ioctl(int fd, unsigned long request, ...);
int __real_open(const char* path, int flags, ...);
int __real_close(int fd);

FILE* __real_fopen(const char* path, const char* mode);
int __real_fclose(FILE* stream);
char* __real_fgets(char* line, int size, FILE* stream);
size_t __real_fwrite(const void* data, size_t size, size_t count, FILE* stream);
int __real_rename(const char* from, const char* to);
int __real_remove(const char* path);

int __real_gethostname(char* name, size_t length);
hostent* __real_gethostbyname(const char* name);
unsigned int __real_sleep(unsigned int seconds);
}
