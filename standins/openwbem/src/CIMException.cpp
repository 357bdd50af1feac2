#include "COWData.hpp"
#include "OW_CIMException.hpp"
#include <iterator>
#include <new>
#include <string>
#include <utility>

namespace OpenWBEM
{

namespace
{

const int SUBCLASS_ID = 1;

const char* const DESCRIPTIONS[] = {
    "no error",
    "general error",
    "Access to CIM resource unavailable to client",
    "namespace does not exist",
    "invalid parameter passed to method",
    "class does not exist",
    "requested object could not be found",
    "requested operation is not supported",
    "operation cannot be done on class with subclasses",
    "operator cannot be done on class with instances",
    "specified superclass does not exist",
    "object already exists",
    "specified property does not exist",
    "value supplied is incompatible with type",
    "query language is not recognized or supported",
    "query is not valid for the specified query language",
    "extrinsic method could not be executed",
    "extrinsic method does not exist",
};

std::string description(int code)
{
    const bool known = code >= 0 && static_cast<size_t>(code) < std::size(DESCRIPTIONS);
    return known ? DESCRIPTIONS[code] : "unknown error";
}

// A text that already begins with the description came out of another exception and is not decorated again.
std::string decorated(const std::string& described, const std::string& text)
{
    if (text.empty()) {
        return described;
    }
    if (text.compare(0, described.length(), described) == 0) {
        return text;
    }
    return described + " (" + text + ")";
}

} // namespace

struct CIMException::Message : COWData<CIMException::Message> {
    explicit Message(std::string content) : text(std::move(content)) {}

    std::string text;
};

CIMException::CIMException(const char* file, int line, ErrNoType errval, const char* msg,
                           const Exception* otherException)
    : Exception(file, line, msg, errval, otherException, SUBCLASS_ID)
{
}

CIMException::CIMException(const CIMException&) = default;

CIMException& CIMException::operator=(const CIMException&) = default;

CIMException::~CIMException() noexcept = default;

const char* CIMException::type() const
{
    return "CIMException";
}

const char* CIMException::getMessage() const
{
    if (m_message.isNull()) {
        m_message = COWReference<Message>(
            new Message(decorated(description(getErrorCode()), Exception::getMessage())));
    }
    return m_message.read().text.c_str();
}

CIMException* CIMException::clone() const noexcept
{
    return new (std::nothrow) CIMException(*this);
}

CIMException::ErrNoType CIMException::getErrNo() const
{
    return static_cast<ErrNoType>(getErrorCode());
}

void CIMException::setErrNo(ErrNoType e)
{
    setErrorCode(e);
}

void CIMException::swap(CIMException& other)
{
    Exception::swap(other);
    m_message.swap(other.m_message);
}

} // namespace OpenWBEM
