#ifndef OW_OPERATION_CONTEXT_HPP_
#define OW_OPERATION_CONTEXT_HPP_

#include "OW_CommonFwd.hpp"
#include "OW_Exception.hpp"
#include "OW_IntrusiveCountableBase.hpp"
#include "OW_IntrusiveReference.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// A key was asked for that the context lacks; the message is the key.
OW_DECLARE_EXCEPTION(ContextDataNotFound)

// What belongs to one request and is passed along with it.
class OperationContext
{
  public:
    class Data : public IntrusiveCountableBase
    {
      public:
        virtual ~Data();
    };
    typedef IntrusiveReference<Data> DataRef;

    static const char* const USER_NAME;
    static const char* const HTTP_PATH;

    OperationContext();
    ~OperationContext();

    void setData(const String& key, const DataRef& data);
    void removeData(const String& key);
    DataRef getData(const String& key) const; // null when absent
    bool keyHasData(const String& key) const;
    void setStringData(const String& key, const String& str);
    String getStringData(const String& key) const; // ContextDataNotFoundException when absent
    String getStringDataWithDefault(const String& key, const String& def = String()) const;

  private:
    OperationContext(const OperationContext&) = delete;
    OperationContext& operator=(const OperationContext&) = delete;

    struct Entries;
    IntrusiveReference<Entries> m_entries;
};

} // namespace OpenWBEM

#endif
