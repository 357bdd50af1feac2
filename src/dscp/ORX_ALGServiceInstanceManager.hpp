#ifndef KV_DSCP_ORX_ALGSERVICEINSTANCEMANAGER_HPP
#define KV_DSCP_ORX_ALGSERVICEINSTANCEMANAGER_HPP

#include <cstdint>
#include <map>
#include <string>

class ORX_ALGService;

/// The registry through which every marking service object is created, found, enumerated and destroyed. It
/// never owns its objects: they add and remove themselves. It allows one iteration at a time and takes no
/// lock, because requests reach it one by one.
///
/// This base class can neither create nor destroy objects; a concrete manager overrides both.
class ORX_ALGServiceInstanceManager
{
  public:
    ORX_ALGServiceInstanceManager();
    ORX_ALGServiceInstanceManager(const ORX_ALGServiceInstanceManager&) = delete;
    ORX_ALGServiceInstanceManager& operator=(const ORX_ALGServiceInstanceManager&) = delete;
    virtual ~ORX_ALGServiceInstanceManager();

    /// Called when the manager is installed. Returns 0 on success; here it does nothing.
    virtual std::uint32_t init();

    /// Throws CFG_InstanceCreationFailed here.
    virtual ORX_ALGService* createORX_ALGService(const std::string& systemCreationClassName,
                                                 const std::string& systemName,
                                                 const std::string& creationClassName,
                                                 const std::string& name);
    /// Throws CFG_InstanceDeletionFailed here.
    virtual void destroyORX_ALGService(ORX_ALGService* service);

    /// Stores `service` under its key, in place of any other object there, which stays alive.
    virtual void add(ORX_ALGService* service);
    /// Erases the entry under the key of `service`, if there is one. Deletes no object.
    virtual void remove(ORX_ALGService* service);
    /// Throws CFG_NoInstance if no object is stored under these keys.
    virtual ORX_ALGService* get(const std::string& systemCreationClassName, const std::string& systemName,
                                const std::string& creationClassName, const std::string& name);

    /// Iteration in the byte order of the keys. The object that next() returned may be deleted at once.
    virtual void startIteration();
    virtual bool hasNext();
    /// Throws CFG_NoInstance at the end.
    virtual ORX_ALGService* next();
    virtual void endIteration();

  protected:
    /// Keyed by the four key texts run together. Kept: nothing separates them, so "AB" and "C" share an entry
    /// with "A" and "BC".
    using Services = std::map<std::string, ORX_ALGService*>;
    Services services;

  private:
    Services::iterator cursor;
};

#endif
