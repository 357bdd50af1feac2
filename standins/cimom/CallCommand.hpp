#pragma once

#include "ObjectManager.hpp"

#include <string>
#include <vector>

namespace cimom
{

struct CallOptions {
    std::string operation;
    std::string
        objectPath; // "Class", "Class.Key=\"value\"", with "namespace:" before it if it is not the default
    std::vector<std::string> assignments; // "Name=value"
    bool json = false;
};

// Performs one operation without HTTP. Letter case does not matter in an operation's name. A name that is no
// operation is a method of the object. Prints the result on standard output and an error on standard error.
// With JSON both go to standard output. Returns the exit code: 0, or the CIM code of the error.
int call(ObjectManager& objectManager, const CallOptions& options);

} // namespace cimom
