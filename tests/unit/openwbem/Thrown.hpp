#ifndef TESTS_UNIT_OPENWBEM_THROWN_HPP_
#define TESTS_UNIT_OPENWBEM_THROWN_HPP_

#include "OW_Exception.hpp"
#include <string>

// What an operation throws, as "type: message".
template <class Operation>
std::string thrown(Operation operation)
{
    try {
        operation();
    } catch (const OpenWBEM::Exception& e) {
        return std::string(e.type()) + ": " + e.getMessage();
    }
    return "nothing";
}

// What every use of a null object throws; the class itself is internal to the library.
const char* const NULL_REFERENCE = "NULLCOWIntrusiveReferenceException: NULL COWReference dereferenced";

#endif
