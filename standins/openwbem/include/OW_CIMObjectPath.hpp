#ifndef OW_CIM_OBJECT_PATH_HPP_
#define OW_CIM_OBJECT_PATH_HPP_

#include "OW_CIMBase.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"

namespace OpenWBEM
{

// The name of a class or, with keys, of an instance. Keys carry no qualifiers.
class CIMObjectPath : public CIMBase
{
  public:
    CIMObjectPath();
    explicit CIMObjectPath(CIMNULL_t);
    explicit CIMObjectPath(const CIMName& className);
    explicit CIMObjectPath(const char* className);
    CIMObjectPath(const CIMName& className, const String& nameSpace);
    CIMObjectPath(const CIMName& className, const CIMPropertyArray& keys);
    CIMObjectPath(const String& nameSpace, const CIMInstance& instance); // class and keys of the instance

    virtual void setNull();
    CIMPropertyArray getKeys() const;
    CIMProperty getKey(const CIMName& name) const;  // null when absent
    CIMProperty getKeyT(const CIMName& name) const; // NoSuchPropertyException when absent
    CIMValue getKeyValue(const CIMName& name) const;
    bool keyHasValue(const CIMName& name) const;
    CIMObjectPath& setKeys(const CIMPropertyArray& keys); // replaces all
    CIMObjectPath& setKeys(const CIMInstance& instance);
    CIMObjectPath& setKeyValue(const CIMName& name, const CIMValue& value); // replaces or adds
    CIMObjectPath& addKey(const CIMName& name,
                          const CIMValue& value); // appends, even if there is one of that name
    CIMObjectPath& addKey(const CIMProperty& key);

    String getClassName() const;
    CIMObjectPath& setClassName(const CIMName& className);
    String getObjectName() const;
    CIMObjectPath& setObjectName(const CIMName& className);
    String getNameSpace() const;
    CIMObjectPath& setNameSpace(const String& nameSpace); // trimmed, without leading slashes
    String getHost() const;
    CIMObjectPath& setHost(const String& host);
    bool isClassPath() const;
    bool isInstancePath() const;
    bool equals(const CIMObjectPath& arg) const; // the host does not matter
    bool operator==(const CIMObjectPath& arg) const { return equals(arg); }
    bool operator!=(const CIMObjectPath& arg) const { return !equals(arg); }
    friend bool operator<(const CIMObjectPath& lhs, const CIMObjectPath& rhs); // by all that it is made of
    CIMObjectPath&
    syncWithClass(const CIMClass& cimClass); // of instance paths: the keys are those of the class

    static CIMObjectPath parse(const String& text); // all keys are strings
    static String escape(const String& text);
    static String unEscape(const String& text);
    virtual String toString() const;
    virtual String modelPath() const; // class and keys
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

} // namespace OpenWBEM

#endif
