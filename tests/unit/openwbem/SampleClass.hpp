#ifndef TESTS_UNIT_OPENWBEM_SAMPLE_CLASS_HPP_
#define TESTS_UNIT_OPENWBEM_SAMPLE_CLASS_HPP_

#include "OW_CIMClass.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"

// class SAMPLE_Port { [Key] string Name; [Write, MaxLen(4)] uint16 Level; string Color = "green"; };
// with a Provider qualifier.
inline OpenWBEM::CIMClass sampleClass()
{
    using namespace OpenWBEM;
    CIMQualifier write("Write");
    write.setValue(CIMValue(true));
    CIMQualifier provider("Provider");
    provider.setValue(CIMValue("c++::SampleProvider"));

    CIMProperty name("Name", CIMDataType(CIMDataType::STRING));
    name.setQualifier(CIMQualifier::createKeyQualifier());
    CIMProperty level("Level", CIMDataType(CIMDataType::UINT16));
    level.setQualifier(write);
    level.setOriginClass("SAMPLE_Base");

    CIMClass made("SAMPLE_Port");
    made.addQualifier(provider);
    made.addProperty(name);
    made.addProperty(level);
    made.addProperty(CIMProperty("Color", CIMValue("green")));
    return made;
}

#endif
