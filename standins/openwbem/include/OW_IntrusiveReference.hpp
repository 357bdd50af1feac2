#ifndef OW_INTRUSIVE_REFERENCE_HPP_
#define OW_INTRUSIVE_REFERENCE_HPP_

#include "OW_SafeBool.hpp"

namespace OpenWBEM
{

// Counted pointer to an object that carries the count itself. Nothing checks for null: dereferencing a null
// reference ends the process. The constness of the reference does not reach the object.
template <class T>
class IntrusiveReference
{
  public:
    typedef T element_type;

    IntrusiveReference() : m_obj(0) {}
    IntrusiveReference(T* p, bool add_ref = true) : m_obj(p)
    {
        if (p && add_ref) {
            IntrusiveReferenceAddRef(p);
        }
    }
    IntrusiveReference(IntrusiveReference const& other) : m_obj(other.m_obj) { add(); }
    template <class U>
    IntrusiveReference(IntrusiveReference<U> const& other) : m_obj(other.getPtr())
    {
        add();
    }
    ~IntrusiveReference()
    {
        if (m_obj) {
            IntrusiveReferenceRelease(m_obj);
        }
    }

    IntrusiveReference& operator=(IntrusiveReference const& other)
    {
        IntrusiveReference(other).swap(*this);
        return *this;
    }
    template <class U>
    IntrusiveReference& operator=(IntrusiveReference<U> const& other)
    {
        IntrusiveReference(other).swap(*this);
        return *this;
    }
    IntrusiveReference& operator=(T* p)
    {
        IntrusiveReference(p).swap(*this);
        return *this;
    }

    T* getPtr() const { return m_obj; }
    T& operator*() const { return *m_obj; }
    T* operator->() const { return m_obj; }
    bool isNull() const { return m_obj == 0; }
    void swap(IntrusiveReference& other)
    {
        T* const mine = m_obj;
        m_obj = other.m_obj;
        other.m_obj = mine;
    }
    template <class U>
    IntrusiveReference<U> cast_to() const
    {
        return IntrusiveReference<U>(dynamic_cast<U*>(m_obj));
    }

    OW_SAFE_BOOL(m_obj != 0)

  private:
    void add()
    {
        if (m_obj) {
            IntrusiveReferenceAddRef(m_obj);
        }
    }

    T* m_obj;
};

template <class T, class U>
bool operator==(IntrusiveReference<T> const& a, IntrusiveReference<U> const& b)
{
    return a.getPtr() == b.getPtr();
}
template <class T, class U>
bool operator!=(IntrusiveReference<T> const& a, IntrusiveReference<U> const& b)
{
    return a.getPtr() != b.getPtr();
}
template <class T>
bool operator==(IntrusiveReference<T> const& a, T* b)
{
    return a.getPtr() == b;
}
template <class T>
bool operator!=(IntrusiveReference<T> const& a, T* b)
{
    return a.getPtr() != b;
}
template <class T>
bool operator==(T* a, IntrusiveReference<T> const& b)
{
    return a == b.getPtr();
}
template <class T>
bool operator!=(T* a, IntrusiveReference<T> const& b)
{
    return a != b.getPtr();
}
template <class T>
bool operator<(IntrusiveReference<T> const& a, IntrusiveReference<T> const& b)
{
    return a.getPtr() < b.getPtr();
}
template <class T>
void swap(IntrusiveReference<T>& a, IntrusiveReference<T>& b)
{
    a.swap(b);
}
template <class T, class U>
IntrusiveReference<T> static_pointer_cast(IntrusiveReference<U> const& p)
{
    return IntrusiveReference<T>(static_cast<T*>(p.getPtr()));
}
template <class T, class U>
IntrusiveReference<T> const_pointer_cast(IntrusiveReference<U> const& p)
{
    return IntrusiveReference<T>(const_cast<T*>(p.getPtr()));
}
template <class T, class U>
IntrusiveReference<T> dynamic_pointer_cast(IntrusiveReference<U> const& p)
{
    return IntrusiveReference<T>(dynamic_cast<T*>(p.getPtr()));
}

} // namespace OpenWBEM

#endif
