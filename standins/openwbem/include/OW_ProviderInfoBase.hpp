#ifndef OW_PROVIDER_INFO_BASE_HPP_
#define OW_PROVIDER_INFO_BASE_HPP_

#include "OW_Array.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// A class that a provider serves. No namespaces: all of them.
struct InstClassInfo {
    explicit InstClassInfo(String const& className_, StringArray const& namespaces_ = StringArray())
        : className(className_), namespaces(namespaces_)
    {
    }

    String className;
    StringArray namespaces;
};

// What a provider says about itself when the object manager inspects it.
template <class ClassInfoType>
class ProviderInfoBase
{
  public:
    typedef ClassInfoType ClassInfo;
    typedef Array<ClassInfoType> ClassInfoArray;

    void addInstrumentedClass(String const& className) { m_classInfo.push_back(ClassInfoType(className)); }
    void addInstrumentedClass(ClassInfoType const& classInfo) { m_classInfo.push_back(classInfo); }
    ClassInfoArray const& getClassInfo() const { return m_classInfo; }
    void setProviderName(String const& name) { m_name = name; }
    String getProviderName() const { return m_name; }

  protected:
    virtual ~ProviderInfoBase() {}

  private:
    ClassInfoArray m_classInfo;
    String m_name;
};

} // namespace OpenWBEM

#endif
