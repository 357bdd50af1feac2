#ifndef OPENWBEM_SRC_CASE_FOLDING_HPP_
#define OPENWBEM_SRC_CASE_FOLDING_HPP_

namespace OpenWBEM
{

// 0 when two UTF-8 texts match, else the difference of the first bytes that do not match, as they stand;
// beyond ASCII a later byte of the character may count. Two characters match when they are the same or one of
// them folds into the other, which is not transitive: small and final sigma both match, but not the capital
// and the final one.
int compareIgnoringCase(const char* lhs, const char* rhs);

} // namespace OpenWBEM

#endif
