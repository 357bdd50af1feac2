// Loads a provider library as the object manager does when it starts: version, object, no initialize, and all
// of it gone again. Prints the version. For a library of a package, which is not where it was built.

#include <OW_CppProviderBaseIFC.hpp>
#include <OW_IntrusiveReference.hpp>

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace
{

template <typename Function>
Function* entryPoint(void* library, const char* name)
{
    void* const found = dlsym(library, name);
    if (found == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(EXIT_FAILURE);
    }
    return reinterpret_cast<Function*>(found);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: load_library FILE\n");
        return EXIT_FAILURE;
    }
    void* const library = dlopen(argv[1], RTLD_NOW | RTLD_GLOBAL);
    if (library == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return EXIT_FAILURE;
    }
    std::puts(entryPoint<const char*()>(library, "getOWVersion")());
    {
        const OpenWBEM::IntrusiveReference<OpenWBEM::CppProviderBaseIFC> provider(
            entryPoint<OpenWBEM::CppProviderBaseIFC*()>(library, "createProviderLANProvider")());
        if (!provider || provider->getInstanceProvider() == nullptr) {
            std::fprintf(stderr, "no instance provider\n");
            return EXIT_FAILURE;
        }
    }
    return dlclose(library) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
