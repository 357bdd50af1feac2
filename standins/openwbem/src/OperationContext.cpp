#include "OW_OperationContext.hpp"

namespace OpenWBEM
{

OW_DEFINE_EXCEPTION(ContextDataNotFound)

const char* const OperationContext::USER_NAME = "USER_NAME";

namespace
{

struct StringData : OperationContext::Data {
    explicit StringData(const String& held) : text(held) {}

    String text;
};

} // namespace

OperationContext::Data::~Data() = default;

OperationContext::OperationContext() = default;

OperationContext::~OperationContext() = default;

void OperationContext::setData(const String& key, const DataRef& data)
{
    m_data[key] = data;
}

void OperationContext::removeData(const String& key)
{
    m_data.erase(key);
}

OperationContext::DataRef OperationContext::getData(const String& key) const
{
    const auto entry = m_data.find(key);
    return entry == m_data.end() ? DataRef() : entry->second;
}

bool OperationContext::keyHasData(const String& key) const
{
    return bool(getData(key));
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
