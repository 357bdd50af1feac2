#ifndef OPENWBEM_SRC_CASE_FOLDING_HPP_
#define OPENWBEM_SRC_CASE_FOLDING_HPP_

namespace OpenWBEM
{

// Compares two UTF-8 texts like strcmp, ignoring case in the Latin (up to Latin Extended-A), Greek and
// Cyrillic blocks. Bytes that are no UTF-8 are compared as they are.
int compareIgnoringCase(const char* lhs, const char* rhs);

} // namespace OpenWBEM

#endif
