// Errors as a user reads them: what happened, the server's text, its identifier if there is one, what to do.
#pragma once

#include "wire/Failure.hpp"

#include <string>

namespace lanctl::shell
{

struct ServerComplaint {
    std::string text;
    std::string identifier;
    std::string why; // about this very value; otherwise the advice for the text
};

// Each returns a sentence or two without a line break at the end, harmless on a terminal.
std::string complaint(const ServerComplaint& refused);
std::string complaint(const wire::CimError& error);
std::string complaint(const wire::Failure& failure);

} // namespace lanctl::shell
