#ifndef OW_METHOD_PROVIDER_INFO_HPP_
#define OW_METHOD_PROVIDER_INFO_HPP_

#include "OW_Array.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// What a provider of methods says about itself when the object manager inspects it.
class MethodProviderInfo
{
  public:
    // A class whose methods the provider serves. No methods: all of them.
    struct ClassInfo {
        explicit ClassInfo(String const& className_) : className(className_) {}
        ClassInfo(String const& className_, StringArray const& namespaces_, StringArray const& methods_)
            : className(className_), namespaces(namespaces_), methods(methods_)
        {
        }

        String className;
        StringArray namespaces;
        StringArray methods;
    };
    typedef Array<ClassInfo> ClassInfoArray;

    void addInstrumentedClass(String const& className) { m_classInfo.push_back(ClassInfo(className)); }
    void addInstrumentedClass(ClassInfo const& classInfo) { m_classInfo.push_back(classInfo); }
    ClassInfoArray const& getClassInfo() const { return m_classInfo; }
    void setProviderName(String const& name) { m_name = name; }
    String getProviderName() const { return m_name; }

  private:
    ClassInfoArray m_classInfo;
    String m_name;
};

} // namespace OpenWBEM

#endif
