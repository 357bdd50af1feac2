#ifndef OPENWBEM_SRC_MOF_TEXT_HPP_
#define OPENWBEM_SRC_MOF_TEXT_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_String.hpp"

// Pieces of MOF (DMTF DSP0004) that several classes write.
namespace OpenWBEM
{

String quotedMOF(const String& text); // in quotation marks, with escapes

// [Q1("v"),Q2("w")] with the separator between them; nothing when there are no qualifiers.
String qualifiersMOF(const CIMQualifierArray& qualifiers, const char* separator);

// Those of a property in a line of their own.
String propertyQualifiersMOF(const CIMProperty& property);

// The type, a name and, for arrays, the brackets behind it.
String declarationMOF(const CIMDataType& type, const String& name);

} // namespace OpenWBEM

#endif
