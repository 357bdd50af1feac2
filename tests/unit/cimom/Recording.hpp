#pragma once

#include "RawClient.hpp"

#include <string>
#include <vector>

namespace cimom::test
{

// A recorded exchange with its response taken apart.
struct Recording {
    std::string name; // "001-wbemcli-ein"
    int number = 0;   // 1
    std::string request;
    HttpReply response; // status 0 when the answer was bare XML or nothing
    std::string provider;
};

// All of them, in the order in which they were made.
std::vector<Recording> allRecordings();

// What a response says, in one text that can be compared: "HTTP 406", "ERROR 1: text", or the CIM-XML message
// without blanks between elements.
std::string meaningOf(const HttpReply& reply);

} // namespace cimom::test
