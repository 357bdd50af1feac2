#pragma once

namespace cimom
{

// MOF declarations of the qualifiers that the CIM standard defines (DMTF DSP0004, "Qualifiers").
extern const char* const standardQualifiers;

} // namespace cimom
