#include "ProviderLoader.hpp"

#include "OW_CIMException.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"
#include "OW_CppProviderBaseIFC.hpp"
#include "OW_InstanceProviderInfo.hpp"
#include "OW_IntrusiveReference.hpp"
#include "OW_MethodProviderInfo.hpp"
#include "OW_SharedLibraryReference.hpp"

#include <algorithm>
#include <dlfcn.h>
#include <filesystem>

namespace cimom
{

using namespace OpenWBEM;
namespace fs = std::filesystem;

namespace
{

class Library : public SharedLibrary
{
  public:
    // Throws std::runtime_error with the dynamic linker's words.
    explicit Library(const std::string& path) : m_handle(dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL))
    {
        if (m_handle == nullptr) {
            throw std::runtime_error(dlerror());
        }
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() override { dlclose(m_handle); }

    // Throws std::runtime_error naming the symbol when it is missing.
    template <class Function>
    Function* function(const std::string& name) const
    {
        void* symbol = nullptr;
        if (!doGetFunctionPointer(name.c_str(), &symbol)) {
            throw std::runtime_error("it has no function " + name);
        }
        return reinterpret_cast<Function*>(symbol);
    }

  protected:
    bool doGetFunctionPointer(const String& functionName, void** functionPointer) const override
    {
        *functionPointer = dlsym(m_handle, functionName.c_str());
        return *functionPointer != nullptr;
    }

  private:
    void* m_handle;
};

void checkVersion(const Library& library)
{
    const char* version = library.function<const char*()>("getOWVersion")();
    if (version == nullptr || std::string(version) != OW_VERSION) {
        throw std::runtime_error(std::string("it is made for OpenWBEM ") +
                                 (version != nullptr ? version : "") + ", not " OW_VERSION);
    }
}

// The questions that OpenWBEM asks each provider at its start, in its order.
void askWhatItIs(CppProviderBaseIFC& provider)
{
    provider.getPolledProvider();
    provider.getIndicationExportProvider();
    if (CppInstanceProviderIFC* instanceProvider = provider.getInstanceProvider()) {
        InstanceProviderInfo info;
        instanceProvider->getInstanceProviderInfo(info);
    }
    provider.getSecondaryInstanceProvider();
    provider.getAssociatorProvider();
    if (CppMethodProviderIFC* methodProvider = provider.getMethodProvider()) {
        MethodProviderInfo info;
        methodProvider->getMethodProviderInfo(info);
    }
    provider.getIndicationProvider();
}

// X of a file named libX.so, else empty.
std::string idOf(const fs::path& path)
{
    const std::string name = path.filename().string();
    const bool isLibrary = path.extension() == ".so" && name.rfind("lib", 0) == 0;
    return isLibrary ? name.substr(3, name.size() - 6) : "";
}

} // namespace

ProviderLoader::ProviderLoader(std::vector<std::string> directories,
                               const ProviderEnvironmentIFCRef& environment)
    : m_directories(std::move(directories)), m_environment(environment)
{
}

std::vector<std::string> ProviderLoader::inspect() const
{
    std::vector<std::string> ids;
    for (const std::string& directory : m_directories) {
        std::error_code unreadable;
        for (const fs::directory_entry& entry : fs::directory_iterator(directory, unreadable)) {
            if (const std::string id = idOf(entry.path()); !id.empty()) {
                ids.push_back(id);
            }
        }
        if (unreadable) {
            m_environment->getLogger()->logError(
                ("Cannot read provider directory " + directory + ": " + unreadable.message()).c_str());
        }
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    const auto isUnusable = [this](const std::string& id) {
        const CppProviderBaseIFCRef inspected = create(id, libraryOf(id));
        if (inspected) {
            askWhatItIs(*inspected.get());
        }
        return !inspected;
    };
    ids.erase(std::remove_if(ids.begin(), ids.end(), isUnusable), ids.end());
    return ids;
}

CppProviderBaseIFCRef ProviderLoader::provider(const std::string& id)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    CppProviderBaseIFCRef& kept = m_providers[id];
    if (!kept) {
        const CppProviderBaseIFCRef created = create(id, libraryOf(id));
        if (!created) {
            throw CIMException("ProviderLoader.cpp", __LINE__, CIMException::FAILED,
                               ("Invalid provider: " + id).c_str());
        }
        created->initialize(m_environment);
        kept = created;
    }
    kept->updateAccessTime();
    return kept;
}

void ProviderLoader::unloadIdle(std::chrono::seconds idle)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    DateTime now;
    now.setToCurrent();
    for (auto& [id, kept] : m_providers) {
        if (kept && now.get() - kept->getLastAccessTime().get() > idle.count() && !kept->getPersist() &&
            kept->canUnload()) {
            m_environment->getLogger()->logInfo(("Unloading provider " + id).c_str());
            kept.setNull();
        }
    }
}

std::string ProviderLoader::libraryOf(const std::string& id) const
{
    for (const std::string& directory : m_directories) {
        const fs::path path = fs::absolute(directory) / ("lib" + id + ".so");
        if (fs::exists(path)) {
            return path.string();
        }
    }
    return "";
}

// Null when the library cannot be used; the log says why.
CppProviderBaseIFCRef ProviderLoader::create(const std::string& id, const std::string& path) const
{
    try {
        if (path.empty()) {
            throw std::runtime_error("there is no lib" + id + ".so");
        }
        const IntrusiveReference<Library> library(new Library(path));
        checkVersion(*library);
        CppProviderBaseIFC* provider = library->function<CppProviderBaseIFC*()>("createProvider" + id)();
        if (provider == nullptr) {
            throw std::runtime_error("createProvider" + id + " made nothing");
        }
        return CppProviderBaseIFCRef(library, provider);
    } catch (const std::exception& e) {
        m_environment->getLogger()->logError(("Cannot load provider " + id + ": " + e.what()).c_str());
        return CppProviderBaseIFCRef();
    }
}

} // namespace cimom
