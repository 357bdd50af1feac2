#ifndef OW_CONFIG_H_
#define OW_CONFIG_H_

// The version that a provider library reports and that the object manager compares, letter by letter, before
// it loads the library.
#define OW_VERSION "3.0.3"

// Marks what still works and should no longer be called.
#define OW_DEPRECATED __attribute__((deprecated))

// Export decoration of the library's classes; nothing is needed on Linux.
#define OW_COMMON_API

#endif
