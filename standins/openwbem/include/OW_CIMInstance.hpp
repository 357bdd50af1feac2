#ifndef OW_CIM_INSTANCE_HPP_
#define OW_CIM_INSTANCE_HPP_

#include "OW_Array.hpp"
#include "OW_CIMDataType.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_CIMName.hpp"
#include "OW_COWReference.hpp"
#include "OW_SafeBool.hpp"
#include "OW_String.hpp"
#include "OW_WBEMFlags.hpp"

namespace OpenWBEM
{

// An instance of a class. Its properties keep the order in which they were set. Its keys are a list of their
// own: those properties that were keys when a key property, or all properties, were last set.
class CIMInstance : public CIMElement
{
  public:
    CIMInstance();
    explicit CIMInstance(CIMNULL_t);
    explicit CIMInstance(const CIMName& className);
    explicit CIMInstance(const char* className);

    virtual void setNull();
    virtual String getName() const; // the class name
    virtual void setName(const CIMName& name);
    String getClassName() const;
    CIMInstance& setClassName(const CIMName& name);
    String getLanguage() const;
    void setLanguage(const String& language);

    // The properties whose declared type is the given one; INVALID stands for all.
    CIMPropertyArray getProperties(Int32 valueDataType = CIMDataType::INVALID) const;
    CIMInstance& setProperties(const CIMPropertyArray& properties); // replaces all
    CIMProperty getProperty(const CIMName& name) const;             // null when absent
    CIMProperty getProperty(const CIMName& name, const CIMName& originClass) const;
    CIMProperty getPropertyT(const CIMName& name) const;  // NoSuchPropertyException when absent
    CIMValue getPropertyValue(const CIMName& name) const; // null when absent
    bool propertyHasValue(const CIMName& name) const;
    // A property that is there keeps type and qualifiers and takes the value cast to its type; otherwise it
    // is appended with the value's type.
    CIMInstance& setProperty(const CIMName& name, const CIMValue& value);
    CIMInstance&
    setProperty(const CIMProperty& property); // replaces the whole property in its place, or appends
    CIMInstance& removeProperty(const CIMName& name);
    CIMInstance& updatePropertyValue(const CIMProperty& property);                // never adds
    CIMInstance& updatePropertyValue(const CIMName& name, const CIMValue& value); // null throws
    CIMInstance& updatePropertyValues(const CIMPropertyArray& properties);
    CIMPropertyArray getKeyValuePairs() const;
    CIMInstance& setKeys(const CIMPropertyArray& keys);

    CIMQualifierArray getQualifiers() const;
    CIMQualifier getQualifier(const CIMName& name) const; // null when absent
    CIMInstance& setQualifiers(const CIMQualifierArray& qualifiers);
    CIMInstance& setQualifier(const CIMQualifier& qualifier);
    CIMInstance& removeQualifier(const CIMName& name);

    // A null property list keeps all properties, an empty one none, unless it is to be ignored.
    CIMInstance clone(WBEMFlags::ELocalOnlyFlag localOnly,
                      WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                      WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                      const StringArray* propertyList) const;
    // The same, but an empty list keeps all properties.
    CIMInstance clone(WBEMFlags::ELocalOnlyFlag localOnly,
                      WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                      WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                      const StringArray& propertyList = StringArray()) const;
    CIMInstance filterProperties(const StringArray& propertyList,
                                 WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                 WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                 bool ignorePropertyList = false) const;
    // Makes the properties those of the class: unknown ones go, values are cast, missing ones come with
    // defaults.
    CIMInstance&
    syncWithClass(const CIMClass& cimClass,
                  WBEMFlags::EIncludeQualifiersFlag includeQualifiers = WBEMFlags::E_INCLUDE_QUALIFIERS);
    // This instance itself without a list. Otherwise the previous one's properties, those in the list
    // replaced by this one's, or by the class's where this one has none.
    CIMInstance createModifiedInstance(const CIMInstance& previousInstance,
                                       WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                       const StringArray* propertyList, const CIMClass& theClass) const;
    bool propertiesAreEqualTo(const CIMInstance& other) const;

    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(!m_data.isNull())

  private:
    struct Data;
    COWReference<Data> m_data;
};

bool operator<(const CIMInstance& lhs, const CIMInstance& rhs);

} // namespace OpenWBEM

#endif
