#include "OW_CIM.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"
#include "OW_RepositoryIFC.hpp"
#include "OW_ResultHandlers.hpp"
#include <functional>

namespace OpenWBEM
{

using namespace WBEMFlags;

IntrusiveCountableBase::IntrusiveCountableBase() : m_count(0) {}

IntrusiveCountableBase::IntrusiveCountableBase(const IntrusiveCountableBase&) : m_count(0) {}

IntrusiveCountableBase& IntrusiveCountableBase::operator=(const IntrusiveCountableBase&)
{
    return *this; // the references to this object stay as many as they are
}

IntrusiveCountableBase::~IntrusiveCountableBase() = default;

void IntrusiveReferenceAddRef(IntrusiveCountableBase* p)
{
    ++p->m_count;
}

void IntrusiveReferenceRelease(IntrusiveCountableBase* p)
{
    if (--p->m_count == 0) {
        delete p;
    }
}

SharedLibrary::~SharedLibrary() = default;

CIMOMHandleIFC::~CIMOMHandleIFC() = default;

RepositoryIFC::~RepositoryIFC() = default;

ProviderEnvironmentIFC::~ProviderEnvironmentIFC() = default;

CppProviderBaseIFC::CppProviderBaseIFC() : m_persist(false) {}

CppProviderBaseIFC::CppProviderBaseIFC(const CppProviderBaseIFC&) = default;

CppProviderBaseIFC::~CppProviderBaseIFC() = default;

void CppProviderBaseIFC::initialize(const ProviderEnvironmentIFCRef&) {}

CppInstanceProviderIFC* CppProviderBaseIFC::getInstanceProvider()
{
    return nullptr;
}

CppSecondaryInstanceProviderIFC* CppProviderBaseIFC::getSecondaryInstanceProvider()
{
    return nullptr;
}

CppMethodProviderIFC* CppProviderBaseIFC::getMethodProvider()
{
    return nullptr;
}

CppAssociatorProviderIFC* CppProviderBaseIFC::getAssociatorProvider()
{
    return nullptr;
}

CppIndicationExportProviderIFC* CppProviderBaseIFC::getIndicationExportProvider()
{
    return nullptr;
}

CppPolledProviderIFC* CppProviderBaseIFC::getPolledProvider()
{
    return nullptr;
}

CppIndicationProviderIFC* CppProviderBaseIFC::getIndicationProvider()
{
    return nullptr;
}

bool CppProviderBaseIFC::canUnload()
{
    return true;
}

DateTime CppProviderBaseIFC::getLastAccessTime() const
{
    return m_lastAccessTime;
}

void CppProviderBaseIFC::updateAccessTime()
{
    m_lastAccessTime.setToCurrent();
}

bool CppProviderBaseIFC::getPersist() const
{
    return m_persist;
}

void CppProviderBaseIFC::setPersist(bool persist)
{
    m_persist = persist;
}

CppInstanceProviderIFC::~CppInstanceProviderIFC() = default;

void CppInstanceProviderIFC::getInstanceProviderInfo(InstanceProviderInfo&) {}

namespace
{

// Turns each name that it is given into the instance.
class InstanceFetcher : public CIMObjectPathResultHandlerIFC
{
  public:
    using Fetch = std::function<CIMInstance(const CIMObjectPath&)>;

    InstanceFetcher(const Fetch& fetch, CIMInstanceResultHandlerIFC& result)
        : m_fetch(fetch), m_result(result)
    {
    }

  protected:
    void doHandle(const CIMObjectPath& path) override { m_result.handle(m_fetch(path)); }

  private:
    Fetch m_fetch;
    CIMInstanceResultHandlerIFC& m_result;
};

} // namespace

void CppInstanceProviderIFC::enumInstances(const ProviderEnvironmentIFCRef& env, const String& ns,
                                           const String& className, CIMInstanceResultHandlerIFC& result,
                                           ELocalOnlyFlag localOnly, EDeepFlag,
                                           EIncludeQualifiersFlag includeQualifiers,
                                           EIncludeClassOriginFlag includeClassOrigin,
                                           const StringArray* propertyList, const CIMClass&,
                                           const CIMClass& cimClass)
{
    const auto fetch = [&](const CIMObjectPath& path) {
        return getInstance(env, ns, path, localOnly, includeQualifiers, includeClassOrigin, propertyList,
                           cimClass);
    };
    InstanceFetcher fetcher(fetch, result);
    enumInstanceNames(env, ns, className, fetcher, cimClass);
}

CppInstanceProviderIFC* CppInstanceProviderIFC::getInstanceProvider()
{
    return this;
}

CppMethodProviderIFC::~CppMethodProviderIFC() = default;

void CppMethodProviderIFC::getMethodProviderInfo(MethodProviderInfo&) {}

CppMethodProviderIFC* CppMethodProviderIFC::getMethodProvider()
{
    return this;
}

CIMObjectPathArrayBuilder::CIMObjectPathArrayBuilder(CIMObjectPathArray& array) : m_array(array) {}

CIMObjectPathArrayBuilder::~CIMObjectPathArrayBuilder() = default;

void CIMObjectPathArrayBuilder::doHandle(const CIMObjectPath& path)
{
    m_array.push_back(path);
}

CIMInstanceArrayBuilder::CIMInstanceArrayBuilder(CIMInstanceArray& array) : m_array(array) {}

CIMInstanceArrayBuilder::~CIMInstanceArrayBuilder() = default;

void CIMInstanceArrayBuilder::doHandle(const CIMInstance& instance)
{
    m_array.push_back(instance);
}

} // namespace OpenWBEM
