// Every call goes to the decorated provider as it came, and only one at a time is inside it.

#include "provider/SerialisingLANProvider.hpp"
#include "RecordingLANProvider.hpp"

#include <OW_CIMException.hpp>
#include <OW_ResultHandlers.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <pthread.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

using Lines = std::vector<std::string>;

/// Of the thread that records; null while nothing does.
thread_local Lines* journal = nullptr;

void note(const std::string& line)
{
    if (journal)
        journal->push_back(line);
}

} // namespace

// The mutex of the decorator, and of everything else in this program, is the C library's, and its use is
// noted.
extern "C" {
int __real_pthread_mutex_lock(pthread_mutex_t*);
int __real_pthread_mutex_unlock(pthread_mutex_t*);
int __wrap_pthread_mutex_lock(pthread_mutex_t*);
int __wrap_pthread_mutex_unlock(pthread_mutex_t*);

int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex)
{
    const int status = __real_pthread_mutex_lock(mutex);
    note("lock");
    return status;
}

int __wrap_pthread_mutex_unlock(pthread_mutex_t* mutex)
{
    note("unlock");
    return __real_pthread_mutex_unlock(mutex);
}
}

namespace
{

using namespace OpenWBEM; // the provider's interface is all of OpenWBEM's types
using recording::call;

class Serialising : public ::testing::Test
{
  protected:
    Serialising()
    {
        recording::inside = [](const std::string& called) { note(called); };
    }
    ~Serialising() override { recording::inside = nullptr; }

    void enumNames() { provider.enumInstanceNames(env, ns, className, names, cimClass); }
    void enumInstances()
    {
        provider.enumInstances(env, ns, className, instances, WBEMFlags::E_LOCAL_ONLY, WBEMFlags::E_SHALLOW,
                               WBEMFlags::E_INCLUDE_QUALIFIERS, WBEMFlags::E_EXCLUDE_CLASS_ORIGIN,
                               &propertyList, requestedClass, cimClass);
    }
    CIMInstance get()
    {
        return provider.getInstance(env, ns, path, WBEMFlags::E_NOT_LOCAL_ONLY,
                                    WBEMFlags::E_EXCLUDE_QUALIFIERS, WBEMFlags::E_INCLUDE_CLASS_ORIGIN,
                                    &propertyList, cimClass);
    }
    CIMObjectPath create() { return provider.createInstance(env, ns, instance); }
    void remove() { provider.deleteInstance(env, ns, path); }
    void modify()
    {
        provider.modifyInstance(env, ns, instance, previous, WBEMFlags::E_INCLUDE_QUALIFIERS, nullptr,
                                cimClass);
    }
    CIMValue invoke() { return provider.invokeMethod(env, ns, path, methodName, in, out); }

    /// All operations, by the call that each one is to forward.
    std::map<std::string, std::function<void()>> operations()
    {
        return {
            {call("initialize", &env), [this] { provider.initialize(env); }},
            {call("cleanup"), [this] { provider.cleanup(); }},
            {call("enumInstanceNames", &env, &ns, &className, &names, &cimClass), [this] { enumNames(); }},
            {call("enumInstances", &env, &ns, &className, &instances, WBEMFlags::E_LOCAL_ONLY,
                  WBEMFlags::E_SHALLOW, WBEMFlags::E_INCLUDE_QUALIFIERS, WBEMFlags::E_EXCLUDE_CLASS_ORIGIN,
                  &propertyList, &requestedClass, &cimClass),
             [this] { enumInstances(); }},
            {call("getInstance", &env, &ns, &path, WBEMFlags::E_NOT_LOCAL_ONLY,
                  WBEMFlags::E_EXCLUDE_QUALIFIERS, WBEMFlags::E_INCLUDE_CLASS_ORIGIN, &propertyList,
                  &cimClass),
             [this] { get(); }},
            {call("createInstance", &env, &ns, &instance), [this] { create(); }},
            {call("deleteInstance", &env, &ns, &path), [this] { remove(); }},
            {call("modifyInstance", &env, &ns, &instance, &previous, WBEMFlags::E_INCLUDE_QUALIFIERS,
                  static_cast<const StringArray*>(nullptr), &cimClass),
             [this] { modify(); }},
            {call("invokeMethod", &env, &ns, &path, &methodName, &in, &out), [this] { invoke(); }},
        };
    }

    static Lines journalOf(const std::function<void()>& operation)
    {
        Lines lines;
        journal = &lines;
        operation();
        journal = nullptr;
        return lines;
    }

    SerialisingLANProvider provider;
    const ProviderEnvironmentIFCRef env;
    const String ns{"root/cimv2"};
    const String className{"ORX_LANEndpoint"};
    const String methodName{"ResetRouter"};
    const CIMObjectPath path{"ORX_LANEndpoint"};
    const CIMInstance instance{"ORX_LANEndpoint"};
    const CIMInstance previous{"ORX_LANEndpoint"};
    const CIMClass cimClass{CIMNULL};
    const CIMClass requestedClass{CIMNULL};
    const StringArray propertyList;
    const CIMParamValueArray in;
    CIMParamValueArray out;
    CIMObjectPathArray namesTaken;
    CIMInstanceArray instancesTaken;
    CIMObjectPathArrayBuilder names{namesTaken};
    CIMInstanceArrayBuilder instances{instancesTaken};
};

TEST_F(Serialising, EveryOperationIsForwardedUnchangedBetweenLockAndUnlock)
{
    for (const auto& [forwarded, operation] : operations())
        EXPECT_EQ(journalOf(operation), (Lines{"lock", forwarded, "unlock"}));
}

TEST_F(Serialising, ResultsPassThrough)
{
    EXPECT_STREQ("Got", get().getClassName().c_str());
    EXPECT_STREQ("Created", create().getClassName().c_str());
    EXPECT_STREQ("Invoked", invoke().toString().c_str());
}

TEST_F(Serialising, AnExceptionOfTheObjectManagerPassesUntouchedAndLetsTheNextOneIn)
{
    recording::inside = [](const std::string& called) {
        note(called);
        throw CIMException("file.cpp", 5, CIMException::ACCESS_DENIED, "no");
    };
    for (const auto& [forwarded, operation] : operations()) {
        EXPECT_EQ(journalOf([&, &operation = operation] {
                      try {
                          operation();
                          ADD_FAILURE() << "nothing was thrown";
                      } catch (const CIMException& e) {
                          EXPECT_STREQ("file.cpp", e.getFile());
                          EXPECT_EQ(5, e.getLine());
                          EXPECT_EQ(CIMException::ACCESS_DENIED, e.getErrNo());
                      }
                  }),
                  (Lines{"lock", forwarded, "unlock"}));
    }
}

TEST_F(Serialising, AnyOtherExceptionPassesAndLetsTheNextOneIn)
{
    recording::inside = [](const std::string&) { throw std::runtime_error("full"); };
    EXPECT_EQ(journalOf([&] { EXPECT_THROW(get(), std::runtime_error); }), (Lines{"lock", "unlock"}));
    recording::inside = [](const std::string&) {};
    EXPECT_STREQ("Got", get().getClassName().c_str());
}

TEST_F(Serialising, MakingAndDroppingAProviderCallsAndLocksNothing)
{
    EXPECT_EQ(journalOf([] { const SerialisingLANProvider another; }), Lines{});
}

/// Calls every operation of both providers from a thread each, and looks whether two calls are inside at
/// once.
bool overlap(const std::vector<std::function<void()>>& threads)
{
    std::atomic<int> present = 0;
    std::atomic<bool> together = false;
    recording::inside = [&](const std::string&) {
        if (++present > 1)
            together = true;
        std::this_thread::yield();
        --present;
    };
    std::vector<std::thread> running;
    running.reserve(threads.size());
    for (const auto& work : threads)
        running.emplace_back(work);
    for (std::thread& thread : running)
        thread.join();
    return together;
}

TEST_F(Serialising, NoTwoCallsAreEverInsideAtOnce)
{
    const auto everything = [this] {
        for (int i = 0; i < 200; ++i)
            for (const auto& [name, operation] : operations())
                operation();
    };
    EXPECT_FALSE(overlap({everything, everything, everything, everything}));
}

TEST_F(Serialising, TwoObjectsTakeTurnsToo)
{
    SerialisingLANProvider another;
    const auto work = [this](SerialisingLANProvider& one) {
        for (int i = 0; i < 1000; ++i)
            one.deleteInstance(env, ns, path);
    };
    EXPECT_FALSE(overlap({[&] { work(provider); }, [&] { work(another); }}));
}

TEST(SerialisingLayout, TheObjectManagerFindsBothInterfaces)
{
    SerialisingLANProvider provider;
    EXPECT_EQ(&provider, provider.getInstanceProvider());
    EXPECT_EQ(&provider, provider.getMethodProvider());
    EXPECT_EQ(nullptr, provider.getAssociatorProvider());
    EXPECT_EQ(nullptr, provider.getIndicationProvider());
    EXPECT_EQ(nullptr, provider.getPolledProvider());
    EXPECT_TRUE(provider.canUnload());
}

} // namespace
