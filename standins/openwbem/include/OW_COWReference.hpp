#ifndef OW_COW_REFERENCE_HPP_
#define OW_COW_REFERENCE_HPP_

#include <atomic>

namespace OpenWBEM
{

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
    explicit COWHandle(COWCountable* data) noexcept;
    COWHandle(const COWHandle& other) noexcept;
    COWHandle& operator=(const COWHandle& other) noexcept;
    ~COWHandle();

    bool isNull() const { return m_data == 0; }
    void setNull() { COWHandle().swap(*this); }
    void swap(COWHandle& other) noexcept;

  protected:
    const COWCountable& shared() const; // throws on null
    COWCountable& unshared();           // throws on null

  private:
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
