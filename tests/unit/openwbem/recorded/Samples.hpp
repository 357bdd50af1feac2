// Objects that several of the recorded calls are made on.
#ifndef TESTS_UNIT_OPENWBEM_RECORDED_SAMPLES_HPP
#define TESTS_UNIT_OPENWBEM_RECORDED_SAMPLES_HPP

#include "OW_CIM.hpp"
#include <string>
#include <vector>

namespace recorded
{

using namespace OpenWBEM;

template <class T>
struct Named {
    std::string name;
    T object;
};

// A value of each kind.
std::vector<Named<CIMValue>> someValues();

CIMQualifier qualifier(const char* name, const CIMValue& value);
CIMProperty property(const char* name, const CIMValue& value);
// With a qualifier of this name that is true.
CIMProperty qualified(const char* name, const CIMValue& value, const char* qualifierName);

// TheClass, with inherited and own keys, defaults, arrays and a property that is not shown.
CIMClass sampleClass();
// Link, which has two references.
CIMClass linkingClass();
// These two, one without properties, and a null one.
std::vector<Named<CIMClass>> someClasses();

} // namespace recorded

#endif
