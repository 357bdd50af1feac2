#include "JournalProvider.hpp"

extern "C" const char* getOWVersion()
{
    return "3.0.2";
}
extern "C" OpenWBEM::CppProviderBaseIFC* createProviderOtherVersion()
{
    return new JournalProvider;
}
