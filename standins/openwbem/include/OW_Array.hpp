#ifndef OW_ARRAY_HPP_
#define OW_ARRAY_HPP_

#include "OW_ArrayFwd.hpp"
#include "OW_Exception.hpp"
#include "OW_Types.hpp"
#include <memory>
#include <vector>

namespace OpenWBEM
{

// An index beyond the end. The message is Array Index out of bounds. size = S, index = I.
OW_DECLARE_EXCEPTION(OutOfBounds)

[[noreturn]] void throwArrayOutOfBounds(size_t size, size_t index);

// A std::vector whose index is checked, with value semantics.
template <class T>
class Array
{
    typedef std::vector<T> Items;

  public:
    typedef typename Items::value_type value_type;
    typedef typename Items::pointer pointer;
    typedef typename Items::const_pointer const_pointer;
    typedef typename Items::iterator iterator;
    typedef typename Items::const_iterator const_iterator;
    typedef typename Items::reference reference;
    typedef typename Items::const_reference const_reference;
    typedef typename Items::size_type size_type;
    typedef typename Items::difference_type difference_type;
    typedef typename Items::reverse_iterator reverse_iterator;
    typedef typename Items::const_reverse_iterator const_reverse_iterator;

    Array() {}
    explicit Array(std::vector<T>* toWrap) : m_items(std::move(*std::unique_ptr<Items>(toWrap))) {}
    Array(size_type n, const T& value) : m_items(n, value) {}
    Array(int n, const T& value) : m_items(static_cast<size_type>(n), value) {}
    Array(long n, const T& value) : m_items(static_cast<size_type>(n), value) {}
    explicit Array(size_type n) : m_items(n) {}
    template <class InputIterator>
    Array(InputIterator first, InputIterator last) : m_items(first, last)
    {
    }

    iterator begin() { return m_items.begin(); }
    const_iterator begin() const { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator end() const { return m_items.end(); }
    reverse_iterator rbegin() { return m_items.rbegin(); }
    const_reverse_iterator rbegin() const { return m_items.rbegin(); }
    reverse_iterator rend() { return m_items.rend(); }
    const_reverse_iterator rend() const { return m_items.rend(); }

    size_type size() const { return m_items.size(); }
    size_type max_size() const { return m_items.max_size(); }
    size_type capacity() const { return m_items.capacity(); }
    bool empty() const { return m_items.empty(); }

    reference operator[](size_type n) { return m_items[checked(n)]; }
    const_reference operator[](size_type n) const { return m_items[checked(n)]; }
    reference front() { return m_items.front(); }
    const_reference front() const { return m_items.front(); }
    reference back() { return m_items.back(); }
    const_reference back() const { return m_items.back(); }

    Array& operator+=(const T& value)
    {
        push_back(value);
        return *this;
    }
    void push_back(const T& value) { m_items.push_back(value); }
    void append(const T& value) { push_back(value); }
    void appendArray(const Array& other)
    {
        const Items added(other.m_items);
        m_items.insert(m_items.end(), added.begin(), added.end());
    }
    void pop_back() { m_items.pop_back(); }
    void clear() { m_items.clear(); }
    void reserve(size_type n) { m_items.reserve(n); }
    void swap(Array& other) { m_items.swap(other.m_items); }

    iterator insert(iterator position, const T& value) { return m_items.insert(position, value); }
    void insert(size_type position, const T& value) { m_items.insert(at(position), value); }
    template <class InputIterator>
    void insert(iterator position, InputIterator first, InputIterator last)
    {
        m_items.insert(position, first, last);
    }
    void remove(size_type index) { m_items.erase(at(checked(index))); }
    void remove(size_type first, size_type last) // from first up to last, which must be more
    {
        checked(first);
        checked(last - 1);
        m_items.erase(at(first), at(last));
    }
    iterator erase(iterator position) { return m_items.erase(position); }
    iterator erase(iterator first, iterator last) { return m_items.erase(first, last); }
    void resize(size_type n) { m_items.resize(n); }
    void resize(size_type n, const T& value) { m_items.resize(n, value); }

    friend bool operator==(const Array& lhs, const Array& rhs) { return lhs.m_items == rhs.m_items; }
    friend bool operator!=(const Array& lhs, const Array& rhs) { return !(lhs.m_items == rhs.m_items); }
    friend bool operator<(const Array& lhs, const Array& rhs) { return lhs.m_items < rhs.m_items; }
    friend bool operator<=(const Array& lhs, const Array& rhs) { return !(rhs.m_items < lhs.m_items); }
    friend bool operator>(const Array& lhs, const Array& rhs) { return rhs.m_items < lhs.m_items; }
    friend bool operator>=(const Array& lhs, const Array& rhs) { return !(lhs.m_items < rhs.m_items); }
    friend void swap(Array& lhs, Array& rhs) { lhs.swap(rhs); }

  private:
    size_type checked(size_type n) const
    {
        if (n >= m_items.size()) {
            throwArrayOutOfBounds(m_items.size(), n);
        }
        return n;
    }
    iterator at(size_type n) { return m_items.begin() + static_cast<difference_type>(n); }

    Items m_items;
};

typedef Array<UInt8> UInt8Array;
typedef Array<Int8> Int8Array;
typedef Array<UInt16> UInt16Array;
typedef Array<Int16> Int16Array;
typedef Array<UInt32> UInt32Array;
typedef Array<Int32> Int32Array;
typedef Array<UInt64> UInt64Array;
typedef Array<Int64> Int64Array;
typedef Array<Real32> Real32Array;
typedef Array<Real64> Real64Array;

} // namespace OpenWBEM

#endif
