#include "dscp/ORX_ALGService.hpp"

ORX_ALGServiceInstanceManager ORX_ALGService::defaultInstanceManager;
ORX_ALGServiceInstanceManager* ORX_ALGService::theInstanceManager = &ORX_ALGService::defaultInstanceManager;

ORX_ALGService::ORX_ALGService(const std::string& systemCreationClassName, const std::string& systemName,
                               const std::string& creationClassName, const std::string& name)
    : theSystemCreationClassName(systemCreationClassName), theSystemName(systemName),
      theCreationClassName(creationClassName), theName(name)
{
    theInstanceManager->add(this);
}

ORX_ALGService::~ORX_ALGService()
{
    theInstanceManager->remove(this);
}

ORX_ALGService::Status ORX_ALGService::getSystemCreationClassName(std::string& value, Qualifiers&) const
{
    value = theSystemCreationClassName;
    return Done;
}

ORX_ALGService::Status ORX_ALGService::getSystemName(std::string& value, Qualifiers&) const
{
    value = theSystemName;
    return Done;
}

ORX_ALGService::Status ORX_ALGService::getCreationClassName(std::string& value, Qualifiers&) const
{
    value = theCreationClassName;
    return Done;
}

ORX_ALGService::Status ORX_ALGService::getName(std::string& value, Qualifiers&) const
{
    value = theName;
    return Done;
}

ORX_ALGServiceInstanceManager* ORX_ALGService::getInstanceManager()
{
    return theInstanceManager;
}

ORX_ALGService::Status ORX_ALGService::SetInstanceManager(ORX_ALGServiceInstanceManager* manager)
{
    if (theInstanceManager != &defaultInstanceManager && theInstanceManager != manager)
        delete theInstanceManager;
    theInstanceManager = manager;
    return theInstanceManager->init();
}

void ORX_ALGService::ClearInstanceManager()
{
    theInstanceManager = &defaultInstanceManager;
}
