#pragma once

#include "Operations.hpp"

#include <pugixml.hpp>
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

    // Appends the content of the call's IMETHODRESPONSE. Throws CIMException NOT_SUPPORTED for another
    // method, what reading parameters throws, and what the operation throws; the string may then have grown.
    void perform(const pugi::xml_node& call, std::string& xml);

  private:
    using Perform = void (IntrinsicCalls::*)(const pugi::xml_node& call, const OpenWBEM::String& nameSpace,
                                             std::string& xml);
    struct Method {
        const char* name;
        Perform perform;
        bool returnsValue;
    };
    static const Method methods[];

    void getInstance(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateInstances(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateInstanceNames(const pugi::xml_node& call, const OpenWBEM::String& nameSpace,
                                std::string& xml);
    void modifyInstance(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void createInstance(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void deleteInstance(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void getProperty(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void setProperty(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void getClass(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateClasses(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateClassNames(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    void enumerateQualifiers(const pugi::xml_node& call, const OpenWBEM::String& nameSpace, std::string& xml);
    OpenWBEM::CIMClassArray subclasses(const OpenWBEM::String& nameSpace, const OpenWBEM::String& className,
                                       bool deep) const;

    const ClassRepository& m_repository;
    Operations& m_operations;
};

} // namespace cimom
