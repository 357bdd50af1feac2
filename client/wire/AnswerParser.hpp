// Answers of the server: from CIM-XML to values.
#pragma once

#include "wire/Cim.hpp"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace lanctl::wire
{

/// The text is no complete CIM-XML answer; what() says why.
class MalformedAnswer : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

struct AnswerError {
    int code = 0;
    std::string description;
};

struct Answer {
    std::string id;     // of the request that is answered
    std::string method; // whose response it is
    std::optional<AnswerError> error;
    std::vector<Instance> instances;
    std::optional<std::string> returnValue;
};

/// Reads a whole answer. Arrays are passed over: no property of this server has one.
Answer parseAnswer(std::string_view xml);

} // namespace lanctl::wire
