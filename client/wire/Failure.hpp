// What can go wrong between this client and the server.
#pragma once

#include <stdexcept>
#include <string>

namespace lanctl::wire
{

/// No usable answer came: the server was not reached, did not let us in, or did not speak CIM.
class Failure : public std::runtime_error
{
  public:
    enum class Kind { NotReached, NotAuthorised, NoCimAnswer, TimeLimit, Cancelled };

    /// The text is one sentence of what happened; the advice says what to do and may be empty.
    Failure(Kind kind, const std::string& text, std::string advice = {}, bool requestSent = false)
        : std::runtime_error(text), m_kind(kind), m_advice(std::move(advice)), m_requestSent(requestSent)
    {
    }

    Kind kind() const { return m_kind; }
    const std::string& advice() const { return m_advice; }

    /// Whether the server may have carried out the request all the same.
    bool requestSent() const { return m_requestSent; }

  private:
    Kind m_kind;
    std::string m_advice;
    bool m_requestSent;
};

/// The server understood the request and refused it.
class CimError : public std::runtime_error
{
  public:
    CimError(int code, const std::string& text, std::string identifier)
        : std::runtime_error(text), m_code(code), m_identifier(std::move(identifier))
    {
    }

    int code() const { return m_code; }
    const std::string& identifier() const { return m_identifier; }

  private:
    int m_code;
    std::string m_identifier;
};

} // namespace lanctl::wire
