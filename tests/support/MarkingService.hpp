#ifndef KV_TESTS_MARKINGSERVICE_HPP
#define KV_TESTS_MARKINGSERVICE_HPP

namespace fakes
{

/// Deletes what the library leaves to the process: the marking service's objects and an installed manager.
/// Goes back to the default manager.
void releaseMarkingService();

} // namespace fakes

#endif
