#include "CIMObjectPathData.hpp"
#include "NamedElements.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include <tuple>

namespace OpenWBEM
{

CIMObjectPath::CIMObjectPath() : m_data(new Data) {}

CIMObjectPath::CIMObjectPath(CIMNULL_t) {}

CIMObjectPath::CIMObjectPath(const CIMName& className) : m_data(new Data)
{
    m_data.write().className = className;
}

CIMObjectPath::CIMObjectPath(const char* className) : CIMObjectPath(CIMName(className)) {}

CIMObjectPath::CIMObjectPath(const CIMName& className, const String& nameSpace) : CIMObjectPath(className)
{
    setNameSpace(nameSpace);
}

CIMObjectPath::CIMObjectPath(const CIMName& className, const CIMPropertyArray& keys)
    : CIMObjectPath(className)
{
    setKeys(keys);
}

CIMObjectPath::CIMObjectPath(const String& nameSpace, const CIMInstance& instance)
    : CIMObjectPath(CIMName(instance.getClassName()), nameSpace)
{
    setKeys(instance);
}

void CIMObjectPath::setNull()
{
    m_data.setNull();
}

CIMPropertyArray CIMObjectPath::getKeys() const
{
    return m_data.read().keys;
}

CIMProperty CIMObjectPath::getKey(const CIMName& name) const
{
    return findElement(m_data.read().keys, name);
}

CIMProperty CIMObjectPath::getKeyT(const CIMName& name) const
{
    CIMProperty key = getKey(name);
    if (!key) {
        OW_THROW(NoSuchPropertyException, name.toString().c_str());
    }
    return key;
}

CIMValue CIMObjectPath::getKeyValue(const CIMName& name) const
{
    const CIMProperty key = getKey(name);
    return key ? key.getValue() : CIMValue(CIMNULL);
}

bool CIMObjectPath::keyHasValue(const CIMName& name) const
{
    return bool(getKeyValue(name));
}

CIMObjectPath& CIMObjectPath::setKeys(const CIMPropertyArray& keys)
{
    CIMPropertyArray bare(keys);
    for (CIMProperty& key : bare) {
        key.clearQualifiers();
    }
    m_data.write().keys = bare;
    return *this;
}

CIMObjectPath& CIMObjectPath::setKeys(const CIMInstance& instance)
{
    return setKeys(instance.getKeyValuePairs());
}

CIMObjectPath& CIMObjectPath::setKeyValue(const CIMName& name, const CIMValue& value)
{
    CIMProperty key = getKey(name);
    if (key) {
        key.setValue(value);
    } else {
        key = CIMProperty(name, value);
    }
    replaceOrAppend(m_data.write().keys, key);
    return *this;
}

CIMObjectPath& CIMObjectPath::addKey(const CIMName& name, const CIMValue& value)
{
    return value ? addKey(CIMProperty(name, value)) : *this;
}

CIMObjectPath& CIMObjectPath::addKey(const CIMProperty& key)
{
    m_data.write().keys.push_back(CIMProperty(key).clearQualifiers());
    return *this;
}

String CIMObjectPath::getClassName() const
{
    return m_data.read().className.toString();
}

CIMObjectPath& CIMObjectPath::setClassName(const CIMName& className)
{
    m_data.write().className = className;
    return *this;
}

String CIMObjectPath::getObjectName() const
{
    return getClassName();
}

CIMObjectPath& CIMObjectPath::setObjectName(const CIMName& className)
{
    return setClassName(className);
}

String CIMObjectPath::getNameSpace() const
{
    return m_data.read().nameSpace;
}

CIMObjectPath& CIMObjectPath::setNameSpace(const String& nameSpace)
{
    String bare(nameSpace);
    bare.trim();
    while (bare.startsWith('/')) {
        bare.erase(0, 1);
    }
    m_data.write().nameSpace = bare;
    return *this;
}

String CIMObjectPath::getHost() const
{
    return m_data.read().host;
}

CIMObjectPath& CIMObjectPath::setHost(const String& host)
{
    const bool isLocal = host.empty() || host.equalsIgnoreCase("localhost");
    m_data.write().host = isLocal ? String("127.0.0.1") : host;
    return *this;
}

bool CIMObjectPath::isClassPath() const
{
    return m_data.read().keys.empty();
}

bool CIMObjectPath::isInstancePath() const
{
    return !isClassPath();
}

bool CIMObjectPath::equals(const CIMObjectPath& arg) const
{
    if (m_data.isNull() && arg.m_data.isNull()) {
        return true;
    }
    const Data& mine = m_data.read();
    const Data& others = arg.m_data.read();
    bool same = mine.className == others.className && mine.nameSpace.equalsIgnoreCase(others.nameSpace) &&
                mine.keys.size() == others.keys.size();
    for (size_t i = 0; same && i < mine.keys.size(); ++i) {
        const CIMProperty key = arg.getKey(mine.keys[i].getName());
        same = key && key.getValue() == mine.keys[i].getValue();
    }
    return same;
}

bool operator<(const CIMObjectPath& lhs, const CIMObjectPath& rhs)
{
    const auto parts = [](const CIMObjectPath::Data& data) {
        return std::make_tuple(data.nameSpace, data.protocol, data.host + ":" + String(data.port),
                               data.className, data.keys);
    };
    return parts(lhs.m_data.read()) < parts(rhs.m_data.read());
}

CIMObjectPath& CIMObjectPath::syncWithClass(const CIMClass& cimClass)
{
    if (!cimClass || !isInstancePath()) {
        return *this;
    }
    CIMPropertyArray synced;
    for (const CIMProperty& key : m_data.read().keys) {
        CIMProperty ofClass = cimClass.getProperty(key.getName());
        if (!ofClass) {
            continue;
        }
        if (!ofClass.isKey()) {
            synced.push_back(key);
        } else {
            synced.push_back(key.getValue() ? ofClass.setValue(key.getValue()) : ofClass);
        }
    }
    for (const CIMProperty& ofClass : cimClass.getKeys()) {
        if (!hasElement(synced, ofClass.getName())) {
            synced.push_back(ofClass);
        }
    }
    return setKeys(synced);
}

} // namespace OpenWBEM
