#include "lanendpoint/ImpactWarning.hpp"

void impact::appendWarning(cim::Qualifiers& qualifiers, const char* text)
{
    OpenWBEM::CIMQualifier warning("ImpactWarning");
    warning.setValue(OpenWBEM::CIMValue(text));
    qualifiers.push_back(warning);
}
