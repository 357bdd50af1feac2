#ifndef OW_CIM_EXCEPTION_HPP_
#define OW_CIM_EXCEPTION_HPP_

#include "OW_Exception.hpp"

namespace OpenWBEM
{

// An error with a status code of CIM-XML (DMTF DSP0200, status codes). getMessage() and what() give the
// description of the code with the text in parentheses, built at the first call; Exception::getMessage()
// gives the text alone.
class CIMException : public Exception
{
  public:
    enum ErrNoType {
        SUCCESS = 0,
        FAILED = 1,
        ACCESS_DENIED = 2,
        INVALID_NAMESPACE = 3,
        INVALID_PARAMETER = 4,
        INVALID_CLASS = 5,
        NOT_FOUND = 6,
        NOT_SUPPORTED = 7,
        CLASS_HAS_CHILDREN = 8,
        CLASS_HAS_INSTANCES = 9,
        INVALID_SUPERCLASS = 10,
        ALREADY_EXISTS = 11,
        NO_SUCH_PROPERTY = 12,
        TYPE_MISMATCH = 13,
        QUERY_LANGUAGE_NOT_SUPPORTED = 14,
        INVALID_QUERY = 15,
        METHOD_NOT_AVAILABLE = 16,
        METHOD_NOT_FOUND = 17
    };

    CIMException(const char* file, int line, ErrNoType errval, const char* msg = 0,
                 const Exception* otherException = 0);
    CIMException(const CIMException&);
    CIMException& operator=(const CIMException&);
    virtual ~CIMException() noexcept;

    virtual const char* type() const;
    virtual const char* getMessage() const;
    virtual CIMException* clone() const noexcept;
    ErrNoType getErrNo() const;
    void setErrNo(ErrNoType e); // does not touch a message that is already built
    void swap(CIMException& other);

  private:
    struct Message;
    mutable COWReference<Message> m_message;
};

} // namespace OpenWBEM

// They name CIMException unqualified: the caller needs using namespace OpenWBEM.
#define OW_THROWCIM(errval) throw CIMException(__FILE__, __LINE__, (errval))
#define OW_THROWCIMMSG(errval, msg) throw CIMException(__FILE__, __LINE__, (errval), (msg))
#define OW_THROWCIM_SUBEX(errval, msg, subException)                                                         \
    throw CIMException(__FILE__, __LINE__, (errval), (msg), (subException))

#endif
