#include "JournalProvider.hpp"

extern "C" const char* getOWVersion()
{
    return OW_VERSION;
}
extern "C" OpenWBEM::CppProviderBaseIFC* createProviderMadeNothing()
{
    return nullptr;
}
