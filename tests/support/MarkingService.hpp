#ifndef KV_TESTS_MARKINGSERVICE_HPP
#define KV_TESTS_MARKINGSERVICE_HPP

namespace fakes
{

/// Deletes the marking service's objects and a manager that has been installed, which the library leaves to
/// the process, and goes back to the default manager.
void releaseMarkingService();

} // namespace fakes

#endif
