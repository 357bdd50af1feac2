#ifndef OW_SHARED_LIBRARY_REFERENCE_HPP_
#define OW_SHARED_LIBRARY_REFERENCE_HPP_

#include "OW_SafeBool.hpp"
#include "OW_SharedLibrary.hpp"

namespace OpenWBEM
{

// An object (T is the reference to it) together with the library that holds its code: the object goes first,
// the library after it.
template <class T>
class SharedLibraryReference
{
  public:
    SharedLibraryReference() {}
    SharedLibraryReference(SharedLibraryRef const& library, T const& object)
        : m_library(library), m_object(object)
    {
    }
    SharedLibraryReference(SharedLibraryRef const& library, typename T::element_type* object)
        : m_library(library), m_object(object)
    {
    }
    SharedLibraryReference(SharedLibraryReference const&) = default;
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks): the count lives in the library
    SharedLibraryReference& operator=(SharedLibraryReference const& other)
    {
        // Member by member would drop the old library while its object still lives.
        SharedLibraryReference copy(other);
        m_object.swap(copy.m_object);
        m_library.swap(copy.m_library);
        return *this;
    }
    ~SharedLibraryReference() = default;

    typename T::element_type* operator->() const { return m_object.getPtr(); }
    T get() const { return m_object; }
    SharedLibraryRef getLibRef() const { return m_library; }
    bool isNull() const { return !m_object; }
    void setNull() { *this = SharedLibraryReference(); }
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

    OW_SAFE_BOOL(bool(m_object))

  private:
    SharedLibraryRef m_library; // declared first, hence destroyed last
    T m_object;
};

} // namespace OpenWBEM

#endif
