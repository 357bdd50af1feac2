#ifndef KV_DSCP_CFG_EXCEPTION_HPP
#define KV_DSCP_CFG_EXCEPTION_HPP

#include <exception>

/// Failures of configuration objects. They carry nothing but their type. The registry of the marking services
/// throws them and the provider catches them; none of them ever reaches the object manager.
class CFG_Exception : public std::exception
{
};

/// The requested instance does not exist.
class CFG_NoInstance : public CFG_Exception
{
};

/// The instance could not be created.
class CFG_InstanceCreationFailed : public CFG_Exception
{
};

/// The instance could not be deleted.
class CFG_InstanceDeletionFailed : public CFG_Exception
{
};

#endif
