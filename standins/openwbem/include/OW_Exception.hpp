#ifndef OW_EXCEPTION_HPP_
#define OW_EXCEPTION_HPP_

#include "OW_COWReference.hpp"
#include "OW_config.h"
#include <exception>
#include <iosfwd>

namespace OpenWBEM
{

// What all exceptions of the library share: where they were thrown (file and line), a message and numbers.
// File and message are copied; copies of an exception share them.
class Exception : public std::exception
{
  public:
    // They have no definition: no reference can be bound to them.
    static const int UNKNOWN_SUBCLASS_ID = -1;
    static const int UNKNOWN_ERROR_CODE = -1;

    virtual const char* type() const;       // the class name
    virtual const char* getMessage() const; // never 0; "" when there is none
    const char* getFile() const;            // never 0; "" when there is none
    int getLine() const;
    int getErrorCode() const;                  // UNKNOWN_ERROR_CODE when there is none
    int getSubClassId() const;                 // UNKNOWN_SUBCLASS_ID when there is none
    const Exception* getSubException() const;  // the cause; 0 when there is none
    virtual const char* what() const noexcept; // getMessage(), through the virtual
    virtual Exception* clone() const;

  protected:
    Exception(const char* file, int line, const char* msg, int errorCode = UNKNOWN_ERROR_CODE,
              const Exception* otherException = 0, int subClassId = UNKNOWN_SUBCLASS_ID);
    Exception(const Exception&);
    Exception& operator=(const Exception&);
    virtual ~Exception() noexcept; // a clone is deleted as what it is

    void swap(Exception&);
    void setErrorCode(int errorCode);
    void setSubClassId(int subClassId);

  private:
    struct Data;
    COWReference<Data> m_data;
};

// "file: line type: message", with [no file], [no line] (line 0) and [no message] for what is missing.
std::ostream& operator<<(std::ostream&, const Exception&);

} // namespace OpenWBEM

#define OW_THROW(exceptionType, msg) throw exceptionType(__FILE__, __LINE__, (msg))
#define OW_THROW_ERR(exceptionType, msg, errorCode)                                                          \
    throw exceptionType(__FILE__, __LINE__, (msg), (errorCode))

// Declares class NAMEException; OW_DEFINE_EXCEPTION(NAME) in one source file defines its members.
#define OW_DECLARE_EXCEPTION(NAME)                                                                           \
    class NAME##Exception : public ::OpenWBEM::Exception                                                     \
    {                                                                                                        \
      public:                                                                                                \
        NAME##Exception(const char* file, int line, const char* msg, int errorCode = -1,                     \
                        const ::OpenWBEM::Exception* otherException = 0, int subClassId = -1);               \
        virtual ~NAME##Exception() noexcept;                                                                 \
        virtual NAME##Exception* clone() const;                                                              \
        virtual const char* type() const;                                                                    \
    };

#define OW_DEFINE_EXCEPTION(NAME) OW_DEFINE_NUMBERED_EXCEPTION(NAME, -1)

// The same with a sub-class id of its own.
#define OW_DEFINE_NUMBERED_EXCEPTION(NAME, ID)                                                               \
    NAME##Exception::NAME##Exception(const char* file, int line, const char* msg, int errorCode,             \
                                     const ::OpenWBEM::Exception* otherException, int subClassId)            \
        : ::OpenWBEM::Exception(file, line, msg, errorCode, otherException,                                  \
                                subClassId == -1 ? (ID) : subClassId)                                        \
    {                                                                                                        \
    }                                                                                                        \
    NAME##Exception::~NAME##Exception() noexcept {}                                                          \
    NAME##Exception* NAME##Exception::clone() const                                                          \
    {                                                                                                        \
        return new NAME##Exception(*this);                                                                   \
    }                                                                                                        \
    const char* NAME##Exception::type() const                                                                \
    {                                                                                                        \
        return #NAME "Exception";                                                                            \
    }

#endif
