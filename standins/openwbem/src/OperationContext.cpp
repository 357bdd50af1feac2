#include "OW_OperationContext.hpp"
#include <map>

namespace OpenWBEM
{

OW_DEFINE_NUMBERED_EXCEPTION(ContextDataNotFound, 30)

const char* const OperationContext::USER_NAME = "USER_NAME";
const char* const OperationContext::HTTP_PATH = "HTTP_PATH";

namespace
{

struct StringData : OperationContext::Data {
    explicit StringData(const String& held) : text(held) {}

    String text;
};

} // namespace

OperationContext::Data::~Data() = default;

struct OperationContext::Entries : IntrusiveCountableBase {
    std::map<String, DataRef> data;
};

OperationContext::OperationContext() : m_entries(new Entries) {}

OperationContext::~OperationContext() = default;

void OperationContext::setData(const String& key, const DataRef& data)
{
    m_entries->data[key] = data;
}

void OperationContext::removeData(const String& key)
{
    m_entries->data.erase(key);
}

OperationContext::DataRef OperationContext::getData(const String& key) const
{
    const auto entry = m_entries->data.find(key);
    return entry == m_entries->data.end() ? DataRef() : entry->second;
}

bool OperationContext::keyHasData(const String& key) const
{
    return m_entries->data.count(key) > 0;
}

void OperationContext::setStringData(const String& key, const String& str)
{
    setData(key, DataRef(new StringData(str)));
}

String OperationContext::getStringData(const String& key) const
{
    const IntrusiveReference<StringData> data = getData(key).cast_to<StringData>();
    if (!data) {
        OW_THROW(ContextDataNotFoundException, key.c_str());
    }
    return data->text;
}

String OperationContext::getStringDataWithDefault(const String& key, const String& def) const
{
    const IntrusiveReference<StringData> data = getData(key).cast_to<StringData>();
    return data ? data->text : def;
}

} // namespace OpenWBEM
