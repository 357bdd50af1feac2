// lanprovider-check FILE: whether OpenWBEM 3.0.3 can use a provider library, found out before it is asked to.
// Loads the file as OpenWBEM does, with all its symbols resolved at once.

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace
{

constexpr const char* interfaceVersion = "3.0.3";

constexpr int usable = 0;
constexpr int notUsable = 1;
constexpr int wrongUsage = 2;

constexpr const char* usage =
    "usage: lanprovider-check FILE\n"
    "\n"
    "Says whether the object manager OpenWBEM 3.0.3 can use the C++ provider library FILE, lib<provider>.so, "
    "and\n"
    "what is missing. Run it on the server, where the libraries that FILE needs are, before the object "
    "manager\n"
    "starts: OpenWBEM 3.0.3 ends at the first request to a library that cannot be loaded.\n"
    "\n"
    "What the object manager's process brings along and FILE does not name goes into LD_PRELOAD.\n"
    "\n"
    "exit status: 0 it can be used, 1 it cannot, 2 wrong usage\n";

int refuse(const std::string& file, const std::string& reason)
{
    std::fprintf(stderr, "%s: %s\n", file.c_str(), reason.c_str());
    return notUsable;
}

/// <provider> of lib<provider>.so; empty for any other name.
std::string providerOf(const std::string& file)
{
    const std::string name = file.substr(file.rfind('/') + 1);
    const std::string before = "lib";
    const std::string behind = ".so";
    if (name.size() <= before.size() + behind.size() || name.compare(0, before.size(), before) != 0 ||
        name.compare(name.size() - behind.size(), behind.size(), behind) != 0)
        return {};
    return name.substr(before.size(), name.size() - before.size() - behind.size());
}

/// Why a file that has been loaded cannot be used; empty if it can.
std::string flawOf(void* library, const std::string& provider)
{
    void* const version = dlsym(library, "getOWVersion");
    if (version == nullptr)
        return "has no function getOWVersion: it is no C++ provider of OpenWBEM";
    const char* const found = reinterpret_cast<const char* (*)()>(version)();
    if (found == nullptr || std::strcmp(found, interfaceVersion) != 0)
        return std::string("was built for version ") + (found ? found : "(none)") +
               " of the provider interface, not for " + interfaceVersion;
    const std::string factory = "createProvider" + provider;
    if (dlsym(library, factory.c_str()) == nullptr)
        return "has no function " + factory + ", which OpenWBEM derives from the name of the file";
    return {};
}

int check(const std::string& file)
{
    const std::string provider = providerOf(file);
    if (provider.empty())
        return refuse(file, "has not the form lib<provider>.so, by which OpenWBEM finds a provider");
    // A name without a folder would be looked for among the system's libraries.
    const std::string path = file.find('/') == std::string::npos ? "./" + file : file;
    if (access(path.c_str(), F_OK) != 0)
        return refuse(file, "there is no such file");
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL);
    if (library == nullptr)
        return refuse(file,
                      std::string("cannot be loaded, and OpenWBEM would end at the first request to it: ") +
                          dlerror());
    const std::string flaw = flawOf(library, provider);
    dlclose(library);
    if (!flaw.empty())
        return refuse(file, flaw);
    std::printf("%s: can be used by OpenWBEM %s\n", file.c_str(), interfaceVersion);
    return usable;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
        std::fputs(usage, stdout);
        return usable;
    }
    if (argc != 2 || argv[1][0] == '-' || argv[1][0] == '\0') {
        std::fputs(usage, stderr);
        return wrongUsage;
    }
    return check(argv[1]);
}
