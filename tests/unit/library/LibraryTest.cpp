// The built library as an object manager's loader meets it. What it calls is taken over by this program's own
// symbols, which come first in the process: the platform's functions and socket(), which always fails here,
// so that no test touches an interface of the machine.

#include "kvu_diag.h"
#include "kvu_registry.h"
#include "os_layer.h"

#include <OW_CIMOMHandleIFC.hpp>
#include <OW_CppProviderBaseIFC.hpp>
#include <OW_LogMessage.hpp>
#include <OW_Logger.hpp>
#include <OW_OperationContext.hpp>
#include <OW_ProviderEnvironmentIFC.hpp>
#include <OW_RepositoryIFC.hpp>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>

#ifdef KV_LEAK_CHECK
#include <sanitizer/lsan_interface.h>
#endif

#include <cerrno>
#include <string>

namespace
{
int calls = 0; // of anything outside of the library
}

// Known to LeakSanitizer alone: a second initialize leaves the earlier service object to the process, as
// intended.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:ORX_ALGServiceImplInstanceManager::createORX_ALGService\n"
           "leak:ORX_ALGServiceProvider::initialize\n";
}

extern "C" int socket(int, int, int) noexcept
{
    ++calls;
    errno = EMFILE;
    return -1;
}

unsigned int KvuGetRegEntryUint16Ex(int, const char*, const char*, uint16_t* out)
{
    ++calls;
    *out = 0;
    return 0;
}

unsigned int KvuSetRegEntryUint16Ex(int, const char*, const char*, uint16_t)
{
    ++calls;
    return 0;
}

unsigned int KvuDiagRegisterModule(const char*, const char*, int, const char*, KvuDiagHandle* handleOut)
{
    ++calls;
    *handleOut = 1;
    return 0;
}

unsigned int KvuDiagDeregisterModule(KvuDiagHandle)
{
    ++calls;
    return 0;
}

unsigned int KvuDiagAddLogEntry(KvuDiagHandle, int, uint16_t, int, const char*)
{
    ++calls;
    return 0;
}

int osGetProcessId(int* pidOut)
{
    ++calls;
    *pidOut = 1;
    return 0;
}

namespace
{

using OpenWBEM::CppProviderBaseIFC;
using OpenWBEM::IntrusiveReference;
using OpenWBEM::LoggerRef;
using OpenWBEM::String;

class SilentLogger : public OpenWBEM::Logger
{
  public:
    SilentLogger() : Logger("test", OpenWBEM::E_ALL_LEVEL) {}

  protected:
    void doProcessLogMessage(const OpenWBEM::LogMessage&) const override { ++calls; }
    LoggerRef doClone() const override { return LoggerRef(new SilentLogger); }
};

class Environment : public OpenWBEM::ProviderEnvironmentIFC
{
  public:
    OpenWBEM::CIMOMHandleIFCRef getCIMOMHandle() const override { return {}; }
    OpenWBEM::CIMOMHandleIFCRef getRepositoryCIMOMHandle() const override { return {}; }
    OpenWBEM::RepositoryIFCRef getRepository() const override { return {}; }
    LoggerRef getLogger() const override { return m_logger; }
    LoggerRef getLogger(const String&) const override { return m_logger; }
    String getConfigItem(const String&, const String& otherwise) const override { return otherwise; }
    String getUserName() const override { return {}; }
    OpenWBEM::OperationContext& getOperationContext() override { return m_context; }

  private:
    LoggerRef m_logger{new SilentLogger};
    OpenWBEM::OperationContext m_context;
};

/// Both variants of the library: the object manager cannot tell them apart.
class Library : public ::testing::TestWithParam<const char*>
{
  protected:
    Library() { load(); }
    ~Library() override
    {
        if (m_handle)
            unload();
    }

    void load()
    {
        calls = 0;
        m_handle = dlopen(GetParam(), RTLD_NOW | RTLD_GLOBAL);
        ASSERT_NE(nullptr, m_handle) << dlerror();
    }

    void unload()
    {
        dlclose(m_handle);
        m_handle = nullptr;
    }

    static bool isMapped() { return dlopen(GetParam(), RTLD_NOW | RTLD_NOLOAD) != nullptr; }

    template <typename Function>
    Function* symbol(const char* name)
    {
        return reinterpret_cast<Function*>(dlsym(m_handle, name));
    }

    IntrusiveReference<CppProviderBaseIFC> create()
    {
        return IntrusiveReference<CppProviderBaseIFC>(
            symbol<CppProviderBaseIFC*()>("createProviderLANProvider")());
    }

  private:
    void* m_handle = nullptr;
};

TEST_P(Library, NamesTheInterfaceVersionThatItIsBuiltFor)
{
    EXPECT_STREQ("3.0.3", symbol<const char*()>("getOWVersion")());
}

TEST_P(Library, IsCreatedAskedAndDroppedWithoutSideEffect)
{
    {
        const auto provider = create();
        EXPECT_NE(nullptr, provider->getInstanceProvider());
        EXPECT_NE(nullptr, provider->getMethodProvider());
        EXPECT_EQ(nullptr, provider->getPolledProvider());
        EXPECT_TRUE(provider->canUnload());
    }
    unload();
    EXPECT_EQ(0, calls);
}

TEST_P(Library, CanReallyBeUnloadedAndLoadedAgain)
{
    create();
    unload();
    EXPECT_FALSE(isMapped()) << "its static objects would outlive the unloading";
    load();
    create();
    EXPECT_EQ(0, calls);
}

TEST_P(Library, GivesANewObjectAtEachCreation)
{
    const auto first = create();
    const auto second = create();
    EXPECT_NE(first.getPtr(), second.getPtr());
}

/// What initialize leaves to the process by design (the marking service's manager and its object) is no
/// finding.
class ByDesign
{
  public:
    ByDesign() { setLeakCheck(false); }
    ~ByDesign() { setLeakCheck(true); }
    ByDesign(const ByDesign&) = delete;
    ByDesign& operator=(const ByDesign&) = delete;

  private:
    static void setLeakCheck([[maybe_unused]] bool on)
    {
#ifdef KV_LEAK_CHECK
        on ? __lsan_enable() : __lsan_disable();
#endif
    }
};

TEST_P(Library, MayBeInitialisedTwiceInOneLoadAndAgainInTheNext)
{
    const ByDesign left;
    const OpenWBEM::ProviderEnvironmentIFCRef env(new Environment);
    testing::internal::CaptureStderr();
    {
        const auto provider = create();
        provider->initialize(env);
        EXPECT_GT(calls, 0);
        const int once = calls;
        provider->initialize(env);
        EXPECT_EQ(2 * once, calls);
    }
    unload();
    load();
    create()->initialize(env);
    const std::string refused = "socket: Too many open files\n";
    std::string nineTimes; // three interfaces, three initialisations
    for (int i = 0; i < 9; ++i)
        nineTimes += refused;
    EXPECT_EQ(nineTimes, testing::internal::GetCapturedStderr());
}

TEST_P(Library, LeavesNothingButTheMarkingServiceBehindAtEachLoad)
{
    const ByDesign left;
    const OpenWBEM::ProviderEnvironmentIFCRef env(new Environment);
    testing::internal::CaptureStderr();
    const auto cycle = [&] {
        create()->initialize(env);
        unload();
        load();
    };
    cycle();
    const std::size_t before = mallinfo2().uordblks;
    constexpr int cycles = 50;
    for (int i = 0; i < cycles; ++i)
        cycle();
    testing::internal::GetCapturedStderr();
    EXPECT_LT(mallinfo2().uordblks, before + cycles * 1024);
}

INSTANTIATE_TEST_SUITE_P(Plain, Library, ::testing::Values(KV_PLAIN_LIBRARY));
INSTANTIATE_TEST_SUITE_P(Serialising, Library, ::testing::Values(KV_SERIALISING_LIBRARY));

} // namespace
