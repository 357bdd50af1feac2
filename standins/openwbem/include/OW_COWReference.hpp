#ifndef OW_COW_REFERENCE_HPP_
#define OW_COW_REFERENCE_HPP_

#include <atomic>
#include <utility>

namespace OpenWBEM
{

// What using a null object throws. The class is internal: callers catch Exception.
[[noreturn]] void throwNullReference();

// What the handles of one CIM object share.
class COWCountable
{
  public:
    COWCountable() : m_count(0) {}
    COWCountable(const COWCountable&) : m_count(0) {}
    COWCountable& operator=(const COWCountable&) = delete;
    virtual ~COWCountable();
    virtual COWCountable* clone() const = 0;

  private:
    friend class COWHandle;
    std::atomic<int> m_count;
};

// A copy-on-write handle that knows nothing of the data, so that a CIM class can hold it without showing its
// data.
class COWHandle
{
  public:
    COWHandle() noexcept : m_data(0) {}
    explicit COWHandle(COWCountable* data) noexcept : m_data(data) // which has no handle yet
    {
        if (m_data) {
            ++m_data->m_count;
        }
    }
    COWHandle(const COWHandle& other) noexcept : m_data(other.m_data)
    {
        if (m_data) {
            ++m_data->m_count;
        }
    }
    COWHandle(COWHandle&& other) noexcept : m_data(other.m_data) { other.m_data = 0; }
    COWHandle& operator=(const COWHandle& other) noexcept
    {
        COWHandle(other).swap(*this);
        return *this;
    }
    COWHandle& operator=(COWHandle&& other) noexcept
    {
        swap(other);
        return *this;
    }
    ~COWHandle()
    {
        if (m_data) {
            release();
        }
    }

    bool isNull() const { return m_data == 0; }
    bool isSharedWith(const COWHandle& other) const { return m_data == other.m_data; }
    void setNull() { COWHandle().swap(*this); }
    void swap(COWHandle& other) noexcept { std::swap(m_data, other.m_data); }

  protected:
    const COWCountable& shared() const // throws on null
    {
        if (!m_data) {
            throwNullReference();
        }
        return *m_data;
    }
    COWCountable& unshared() // throws on null
    {
        if (shared().m_count > 1) {
            COWHandle(m_data->clone()).swap(*this);
        }
        return *m_data;
    }

  private:
    void release();

    COWCountable* m_data;
};

template <class Data>
class COWReference : public COWHandle
{
  public:
    COWReference() {}
    explicit COWReference(Data* data) : COWHandle(data) {}

    const Data& read() const { return static_cast<const Data&>(shared()); }
    Data& write() { return static_cast<Data&>(unshared()); }
};

} // namespace OpenWBEM

#endif
