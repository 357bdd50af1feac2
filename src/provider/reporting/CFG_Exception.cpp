#include "CFG_Exception.hpp"

CFG_Exception::~CFG_Exception() = default;
CFG_NoInstance::~CFG_NoInstance() = default;
CFG_InstanceCreationFailed::~CFG_InstanceCreationFailed() = default;
CFG_InstanceDeletionFailed::~CFG_InstanceDeletionFailed() = default;
