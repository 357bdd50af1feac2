#include "JournalProvider.hpp"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace
{

using namespace OpenWBEM;

// Notices who is there at the same time.
class CrowdProvider : public JournalProvider
{
  public:
    // Two enumerations wait for one another.
    void enumInstanceNames(const ProviderEnvironmentIFCRef&, const String&, const String&,
                           CIMObjectPathResultHandlerIFC&, const CIMClass&) override
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_enumerations;
        m_came.notify_all();
        if (!m_came.wait_for(lock, std::chrono::seconds(20), [this] { return m_enumerations == 2; })) {
            fail("nobody came");
        }
    }
    CIMInstance getInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&,
                            WBEMFlags::ELocalOnlyFlag, WBEMFlags::EIncludeQualifiersFlag,
                            WBEMFlags::EIncludeClassOriginFlag, const StringArray*, const CIMClass&) override
    {
        if (m_changes != 0) {
            fail("a read beside a change");
        }
        ++m_reads;
        std::this_thread::yield();
        --m_reads;
        return CIMInstance("KV_Crowd");
    }
    void modifyInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMInstance&,
                        const CIMInstance&, WBEMFlags::EIncludeQualifiersFlag, const StringArray*,
                        const CIMClass&) override
    {
        ++m_changes;
        std::this_thread::yield();
        if (m_changes != 1 || m_reads != 0) {
            fail("a change that is not alone");
        }
        --m_changes;
    }

  private:
    [[noreturn]] static void fail(const char* what)
    {
        throw CIMException("Crowd.cpp", __LINE__, CIMException::FAILED, what);
    }

    std::mutex m_mutex;
    std::condition_variable m_came;
    int m_enumerations = 0;
    std::atomic<int> m_reads{0};
    std::atomic<int> m_changes{0};
};

} // namespace

OW_PROVIDERFACTORY(CrowdProvider, Crowd)
