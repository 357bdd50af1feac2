#pragma once

#include "OW_CppProviderBaseIFC.hpp"

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace cimom
{

// Loads provider libraries as OpenWBEM's loader does: provider X is lib<X>.so in one of the directories,
// built against 3.0.3 (getOWVersion says so), and made by its function createProvider<X>. Several threads may
// ask for providers.
class ProviderLoader
{
  public:
    ProviderLoader(std::vector<std::string> directories,
                   const OpenWBEM::ProviderEnvironmentIFCRef& environment);

    // Looks at every library when the object manager starts: makes a provider object, asks it what it is, and
    // drops it without initializing it. Libraries that cannot be used are logged. Returns the usable ones'
    // ids.
    std::vector<std::string> inspect() const;

    // The provider, loaded and initialized if it is not there yet. Throws CIMException FAILED for a library
    // that cannot be used, and whatever initialize throws.
    OpenWBEM::CppProviderBaseIFCRef provider(const std::string& id);

    // Drops the providers that have not been used for longer than that, if they allow it.
    void unloadIdle(std::chrono::seconds idle);

  private:
    std::string libraryOf(const std::string& id) const; // empty when there is none
    OpenWBEM::CppProviderBaseIFCRef create(const std::string& id, const std::string& path) const;

    std::vector<std::string> m_directories;
    OpenWBEM::ProviderEnvironmentIFCRef m_environment;
    std::mutex m_mutex;                                                 // of the providers and their times
    std::map<std::string, OpenWBEM::CppProviderBaseIFCRef> m_providers; // loaded and initialized
};

} // namespace cimom
