#ifndef KV_CIM_PROPERTYTABLE_HPP
#define KV_CIM_PROPERTYTABLE_HPP

#include <OW_config.h>

#include <OW_Array.hpp>
#include <OW_CIM.hpp>
#include <OW_CIMValue.hpp>
#include <OW_String.hpp>

#include <cstddef>
#include <optional>

namespace cim
{

using Qualifiers = OpenWBEM::Array<OpenWBEM::CIMQualifier>;

/// A property's value in exactly its CIM type, or nothing when the instance is not to have the property.
using Value = std::optional<OpenWBEM::CIMValue>;

/// The properties of one CIM class, in the order in which an instance carries them, and how each passes
/// between an instance and the class's model. A new property is a row. `Result` is what the model's setters
/// return.
template <typename Model, typename Result>
class PropertyTable
{
  public:
    struct Row {
        const char* name;

        /// Asks the model. Qualifiers for the property are appended to the array.
        Value (*read)(const Model& model, Qualifiers& qualifiers);

        /// Hands a client's value to the model; null for a property that clients cannot set. Throws what
        /// OpenWBEM throws for a value of another type than the property's.
        Result (*set)(Model& model, const OpenWBEM::CIMValue& value) = nullptr;

        /// The most characters that a text may have; 0 when its length is not limited.
        std::size_t maxLength = 0;
    };

    template <std::size_t number>
    explicit constexpr PropertyTable(const Row (&rows)[number]) : m_begin(rows), m_end(rows + number)
    {
    }

    /// Replaces the properties of `instance` by the model's. A property for which the model has no value
    /// stays as it was.
    void fill(OpenWBEM::CIMInstance& instance, const Model& model) const
    {
        for (const Row* row = m_begin; row != m_end; ++row) {
            Qualifiers qualifiers;
            const Value value = row->read(model, qualifiers);
            if (!value)
                continue;
            // Setting it by name and value would cast the value to the type that a reused instance already
            // holds: "" would become 0.
            OpenWBEM::CIMProperty property(row->name, *value);
            property.setQualifiers(qualifiers);
            instance.setProperty(property);
        }
    }

    /// The first `number` properties, which are the class's keys; nothing when one of them has no value.
    std::optional<OpenWBEM::CIMPropertyArray> keys(std::size_t number, const Model& model) const
    {
        OpenWBEM::CIMPropertyArray found;
        for (const Row* row = m_begin; row != m_begin + number; ++row) {
            Qualifiers unused;
            const Value value = row->read(model, unused);
            if (!value)
                return std::nullopt;
            found.push_back(OpenWBEM::CIMProperty(row->name, *value));
        }
        return found;
    }

    /// The row by which a property that a client has sent is set. Names are compared exactly. Null for a
    /// property that is passed over: it is unknown, clients cannot set it, or it has no value.
    const Row* rowToSet(const OpenWBEM::CIMProperty& sent) const
    {
        if (!sent.getValue())
            return nullptr;
        const OpenWBEM::String name = sent.getName();
        for (const Row* row = m_begin; row != m_end; ++row) {
            if (name == row->name)
                return row->set ? row : nullptr;
        }
        return nullptr;
    }

  private:
    const Row* m_begin;
    const Row* m_end;
};

} // namespace cim

#endif
