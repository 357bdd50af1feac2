#include "JournalProvider.hpp"

extern "C" OpenWBEM::CppProviderBaseIFC* createProviderNoVersion()
{
    return new JournalProvider;
}
