#pragma once

#include "Operations.hpp"
#include "XmlElement.hpp"

#include <string>

namespace cimom
{

// The intrinsic methods of DSP0200 that are served: reads the parameters of a call, performs it, and writes
// what it returns.
class IntrinsicCalls
{
  public:
    IntrinsicCalls(const ClassRepository& repository, Operations& operations)
        : m_repository(repository), m_operations(operations)
    {
    }

    // Whether the method only reads, in any letter case.
    static bool isRead(const char* method);

    // Appends the content of the call's IMETHODRESPONSE. Throws CIMException NOT_SUPPORTED for another
    // method. What reading the parameters and the operation throw passes through; the string may have grown
    // by then.
    void perform(const XmlElement& call, std::string& xml);

  private:
    using Perform = void (IntrinsicCalls::*)(const XmlElement& call, const OpenWBEM::String& nameSpace,
                                             std::string& xml);
    struct Method {
        const char* name;
        Perform perform;
        bool returnsValue;
        bool isRead;
    };
    static const Method methods[];
    static const Method* find(const char* name); // null when it is not served

    void getInstance(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateInstances(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateInstanceNames(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void modifyInstance(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void createInstance(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void deleteInstance(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void getProperty(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void setProperty(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void getClass(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateClasses(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateClassNames(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateQualifiers(const XmlElement& call, const OpenWBEM::String& nameSpace, std::string& xml);
    OpenWBEM::CIMClassArray subclasses(const OpenWBEM::String& nameSpace, const OpenWBEM::String& className,
                                       bool deep) const;

    const ClassRepository& m_repository;
    Operations& m_operations;
};

} // namespace cimom
