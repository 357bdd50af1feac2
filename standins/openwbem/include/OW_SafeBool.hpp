#ifndef OW_SAFE_BOOL_HPP_
#define OW_SAFE_BOOL_HPP_

// The truth test of a class: a pointer to a member of a private type, which converts to bool and to nothing
// else. It is not an explicit operator bool, because `bool set = value;` has to compile.
#define OW_SAFE_BOOL(condition)                                                                              \
  private:                                                                                                   \
    struct Truth {                                                                                           \
        int held;                                                                                            \
    };                                                                                                       \
                                                                                                             \
  public:                                                                                                    \
    typedef int Truth::*safe_bool;                                                                           \
    operator safe_bool() const                                                                               \
    {                                                                                                        \
        return (condition) ? &Truth::held : 0;                                                               \
    }                                                                                                        \
    bool operator!() const                                                                                   \
    {                                                                                                        \
        return !(condition);                                                                                 \
    }

#endif
