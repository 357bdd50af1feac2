#include "JournalProvider.hpp"

OW_PROVIDERFACTORY(JournalProvider, Journal)
