#include "OW_Exception.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "OW_NoSuchQualifierException.hpp"
#include <ostream>
#include <string>
#include <utility>

namespace OpenWBEM
{

struct Exception::Texts {
    Texts(const char* givenFile, const char* givenMessage, const Exception* cause)
        : file(givenFile ? givenFile : ""), message(givenMessage ? givenMessage : ""),
          subException(cause ? cause->clone() : nullptr)
    {
    }

    std::string file;
    std::string message;
    std::unique_ptr<const Exception> subException;
};

Exception::Exception(const char* file, int line, const char* msg, int errorCode,
                     const Exception* otherException, int subClassId)
    : m_texts(std::make_shared<const Texts>(file, msg, otherException)), m_line(line), m_errorCode(errorCode),
      m_subClassId(subClassId)
{
}

Exception::Exception(const Exception&) = default;

Exception& Exception::operator=(const Exception&) = default;

Exception::~Exception() noexcept = default;

void Exception::swap(Exception& other)
{
    std::swap(m_texts, other.m_texts);
    std::swap(m_line, other.m_line);
    std::swap(m_errorCode, other.m_errorCode);
    std::swap(m_subClassId, other.m_subClassId);
}

const char* Exception::type() const
{
    return "Exception";
}

const char* Exception::getMessage() const
{
    return m_texts->message.c_str();
}

const char* Exception::getFile() const
{
    return m_texts->file.c_str();
}

int Exception::getLine() const
{
    return m_line;
}

int Exception::getErrorCode() const
{
    return m_errorCode;
}

void Exception::setErrorCode(int errorCode)
{
    m_errorCode = errorCode;
}

int Exception::getSubClassId() const
{
    return m_subClassId;
}

const Exception* Exception::getSubException() const
{
    return m_texts->subException.get();
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

OW_DEFINE_EXCEPTION(NULLValue)
OW_DEFINE_EXCEPTION(NoSuchProperty)
OW_DEFINE_EXCEPTION(NoSuchQualifier)

} // namespace OpenWBEM
