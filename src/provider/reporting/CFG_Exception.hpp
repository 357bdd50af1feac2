#ifndef KV_REPORTING_CFG_EXCEPTION_HPP
#define KV_REPORTING_CFG_EXCEPTION_HPP

#include <exception>

/// Failures of configuration objects. They carry nothing but their type, are thrown by the registry of the
/// DSCP marking service and caught by its provider; none of them ever reaches the object manager.
class CFG_Exception : public std::exception
{
  public:
    CFG_Exception() = default;
    CFG_Exception(const CFG_Exception&) = default;
    CFG_Exception& operator=(const CFG_Exception&) = default;
    ~CFG_Exception() override;
};

/// The requested instance does not exist.
class CFG_NoInstance : public CFG_Exception
{
  public:
    CFG_NoInstance() = default;
    CFG_NoInstance(const CFG_NoInstance&) = default;
    CFG_NoInstance& operator=(const CFG_NoInstance&) = default;
    ~CFG_NoInstance() override;
};

/// The instance could not be created.
class CFG_InstanceCreationFailed : public CFG_Exception
{
  public:
    CFG_InstanceCreationFailed() = default;
    CFG_InstanceCreationFailed(const CFG_InstanceCreationFailed&) = default;
    CFG_InstanceCreationFailed& operator=(const CFG_InstanceCreationFailed&) = default;
    ~CFG_InstanceCreationFailed() override;
};

/// The instance could not be deleted.
class CFG_InstanceDeletionFailed : public CFG_Exception
{
  public:
    CFG_InstanceDeletionFailed() = default;
    CFG_InstanceDeletionFailed(const CFG_InstanceDeletionFailed&) = default;
    CFG_InstanceDeletionFailed& operator=(const CFG_InstanceDeletionFailed&) = default;
    ~CFG_InstanceDeletionFailed() override;
};

#endif
