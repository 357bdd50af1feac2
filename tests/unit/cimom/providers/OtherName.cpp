#include "JournalProvider.hpp"

// The name of the library and of its function disagree.
OW_PROVIDERFACTORY(JournalProvider, SomethingElse)
