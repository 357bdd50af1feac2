#pragma once

#include "ClassRepository.hpp"
#include "HttpServer.hpp"
#include "IntrinsicCalls.hpp"
#include "Operations.hpp"
#include "ProviderLoader.hpp"

#include <chrono>
#include <exception>
#include <shared_mutex>
#include <string>
#include <vector>

namespace cimom
{

class CimXmlMessage;

struct ObjectManagerOptions {
    std::vector<std::string> mof; // files, or directories of .mof files
    std::vector<std::string> providerDirectories;
    bool isParallel = false;   // reads run side by side, as in OpenWBEM
    bool hasBareNames = false; // see Operations
};

// The code and text of a CIM error.
struct CimFailure {
    int code;
    std::string description;
};

// Whatever a provider or an operation threw, as the error that a client gets for it.
CimFailure describe(const std::exception_ptr& thrown);

// Classes, providers and the treatment of requests in one. Several threads may ask for answers. One request
// runs at a time; with isParallel reads run side by side, and a change or a method call runs alone.
class ObjectManager
{
  public:
    // Reads the classes and looks at the provider libraries. Throws MofError.
    ObjectManager(const ObjectManagerOptions& options,
                  const OpenWBEM::ProviderEnvironmentIFCRef& environment);

    // Answers a CIM-XML request. Throws nothing but std::bad_alloc.
    HttpAnswer answer(const std::string& request);

    // For callers in the same process.
    Operations& operations() { return m_operations; }
    const ClassRepository& repository() const { return m_repository; }

    // Does not wait for a request: while one runs, nothing is unloaded.
    void unloadIdle(std::chrono::seconds idle);

  private:
    void performInTurn(const CimXmlMessage& message, std::string& xml);
    void performCall(const CimXmlMessage& message, std::string& xml);
    void performMethod(const CimXmlMessage& message, std::string& xml);

    ClassRepository m_repository;
    ProviderLoader m_loader;
    Operations m_operations;
    IntrinsicCalls m_intrinsicCalls;
    const bool m_isParallel;
    std::shared_mutex m_turn; // a reader waits for a running writer only, not for a waiting one
};

} // namespace cimom
