#include "COWData.hpp"
#include "OW_Exception.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "OW_NoSuchQualifierException.hpp"
#include <ostream>
#include <string>

namespace OpenWBEM
{

struct Exception::Data : COWData<Exception::Data> {
    Data(const char* itsFile, int itsLine, const char* itsMessage, int itsErrorCode, const Exception* cause,
         int itsSubClassId)
        : file(itsFile ? itsFile : ""), line(itsLine), message(itsMessage ? itsMessage : ""),
          errorCode(itsErrorCode), subException(cause ? cause->clone() : nullptr), subClassId(itsSubClassId)
    {
    }
    Data(const Data& other)
        : COWData(other), file(other.file), line(other.line), message(other.message),
          errorCode(other.errorCode),
          subException(other.subException ? other.subException->clone() : nullptr),
          subClassId(other.subClassId)
    {
    }
    Data& operator=(const Data&) = delete;
    ~Data() override { delete subException; }

    std::string file;
    int line;
    std::string message;
    int errorCode;
    const Exception* subException;
    int subClassId;
};

Exception::Exception(const char* file, int line, const char* msg, int errorCode,
                     const Exception* otherException, int subClassId)
    : m_data(new Data(file, line, msg, errorCode, otherException, subClassId))
{
}

Exception::Exception(const Exception&) = default;

Exception& Exception::operator=(const Exception&) = default;

Exception::~Exception() noexcept = default;

void Exception::swap(Exception& other)
{
    m_data.swap(other.m_data);
}

const char* Exception::type() const
{
    return "Exception";
}

const char* Exception::getMessage() const
{
    return m_data.read().message.c_str();
}

const char* Exception::getFile() const
{
    return m_data.read().file.c_str();
}

int Exception::getLine() const
{
    return m_data.read().line;
}

int Exception::getErrorCode() const
{
    return m_data.read().errorCode;
}

void Exception::setErrorCode(int errorCode)
{
    m_data.write().errorCode = errorCode;
}

int Exception::getSubClassId() const
{
    return m_data.read().subClassId;
}

void Exception::setSubClassId(int subClassId)
{
    m_data.write().subClassId = subClassId;
}

const Exception* Exception::getSubException() const
{
    return m_data.read().subException;
}

const char* Exception::what() const noexcept
{
    return getMessage();
}

Exception* Exception::clone() const
{
    return new Exception(*this);
}

std::ostream& operator<<(std::ostream& ostr, const Exception& e)
{
    if (*e.getFile()) {
        ostr << e.getFile() << ": ";
    } else {
        ostr << "[no file]: ";
    }
    if (e.getLine() != 0) {
        ostr << e.getLine() << ' ';
    } else {
        ostr << "[no line] ";
    }
    return ostr << e.type() << ": " << (*e.getMessage() ? e.getMessage() : "[no message]");
}

OW_DEFINE_NUMBERED_EXCEPTION(NULLValue, 29)
OW_DEFINE_NUMBERED_EXCEPTION(NoSuchProperty, 26)
OW_DEFINE_NUMBERED_EXCEPTION(NoSuchQualifier, 28)

} // namespace OpenWBEM
