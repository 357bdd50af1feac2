#ifndef KV_CIM_MODIFICATION_HPP
#define KV_CIM_MODIFICATION_HPP

#include "cim/PropertyTable.hpp"
#include "reporting/Logging.hpp"

namespace cim
{

/// Hands the properties of `instance` to the model one by one, in the instance's order. A setter refuses a
/// property by returning 0 or false. The first refusal ends the change with a failure; the properties before
/// it stay set.
template <typename Model, typename Result>
void applyProperties(const OpenWBEM::CIMInstance& instance, const PropertyTable<Model, Result>& table,
                     Model& model, reporting::SourcePlace where)
{
    const OpenWBEM::CIMPropertyArray properties = instance.getProperties();
    for (const OpenWBEM::CIMProperty& property : properties) {
        const auto* row = table.rowToSet(property);
        if (row && !row->set(model, property.getValue()))
            reporting::logAndFail(where,
                                  "Failed to modify property  " + instance.toString() + "." + row->name,
                                  "LAN_ERROR_failedModifyProperty", ":  with return code: 0");
    }
}

} // namespace cim

#endif
