#include "dscp/ORX_ALGServiceInstanceManager.hpp"

#include "dscp/CFG_Exception.hpp"
#include "dscp/ORX_ALGService.hpp"

namespace
{

using KeyGetter = ORX_ALGService::Status (ORX_ALGService::*)(std::string&, ORX_ALGService::Qualifiers&) const;

std::string keyText(const ORX_ALGService& service, KeyGetter get)
{
    std::string text;
    ORX_ALGService::Qualifiers qualifiers;
    (service.*get)(text, qualifiers);
    return text;
}

std::string compositeKey(const ORX_ALGService& service)
{
    return keyText(service, &ORX_ALGService::getSystemCreationClassName) +
           keyText(service, &ORX_ALGService::getSystemName) +
           keyText(service, &ORX_ALGService::getCreationClassName) +
           keyText(service, &ORX_ALGService::getName);
}

} // namespace

ORX_ALGServiceInstanceManager::ORX_ALGServiceInstanceManager() : cursor(services.end()) {}

ORX_ALGServiceInstanceManager::~ORX_ALGServiceInstanceManager() = default;

std::uint32_t ORX_ALGServiceInstanceManager::init()
{
    return 0;
}

ORX_ALGService* ORX_ALGServiceInstanceManager::createORX_ALGService(const std::string&, const std::string&,
                                                                    const std::string&, const std::string&)
{
    throw CFG_InstanceCreationFailed();
}

void ORX_ALGServiceInstanceManager::destroyORX_ALGService(ORX_ALGService*)
{
    throw CFG_InstanceDeletionFailed();
}

void ORX_ALGServiceInstanceManager::add(ORX_ALGService* service)
{
    services[compositeKey(*service)] = service;
}

void ORX_ALGServiceInstanceManager::remove(ORX_ALGService* service)
{
    const auto entry = services.find(compositeKey(*service));
    if (entry == services.end())
        return;
    if (entry == cursor)
        ++cursor; // the iteration's next object is gone
    services.erase(entry);
}

ORX_ALGService* ORX_ALGServiceInstanceManager::get(const std::string& systemCreationClassName,
                                                   const std::string& systemName,
                                                   const std::string& creationClassName,
                                                   const std::string& name)
{
    const auto entry = services.find(systemCreationClassName + systemName + creationClassName + name);
    if (entry == services.end() || entry->second == nullptr)
        throw CFG_NoInstance();
    return entry->second;
}

void ORX_ALGServiceInstanceManager::startIteration()
{
    cursor = services.begin();
}

bool ORX_ALGServiceInstanceManager::hasNext()
{
    return cursor != services.end();
}

ORX_ALGService* ORX_ALGServiceInstanceManager::next()
{
    if (cursor == services.end() || cursor->second == nullptr)
        throw CFG_NoInstance();
    return (cursor++)->second;
}

void ORX_ALGServiceInstanceManager::endIteration()
{
    cursor = services.end();
}
