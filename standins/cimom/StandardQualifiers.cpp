#include "StandardQualifiers.hpp"

namespace cimom
{

const char* const standardQualifiers = R"mof(
Qualifier Abstract : boolean = false, Scope(class, association, indication), Flavor(DisableOverride, Restricted);
Qualifier Aggregate : boolean = false, Scope(reference), Flavor(DisableOverride, ToSubclass);
Qualifier Aggregation : boolean = false, Scope(association), Flavor(DisableOverride, ToSubclass);
Qualifier Alias : string = null, Scope(property, reference, method), Flavor(EnableOverride, ToSubclass, Translatable);
Qualifier ArrayType : string = "Bag", Scope(property, parameter), Flavor(DisableOverride, ToSubclass);
Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride, ToSubclass);
Qualifier BitMap : string[], Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier BitValues : string[], Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass, Translatable);
Qualifier Composition : boolean = false, Scope(association), Flavor(DisableOverride, ToSubclass);
Qualifier Counter : boolean = false, Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier Deprecated : string[], Scope(any), Flavor(EnableOverride, Restricted);
Qualifier Description : string = null, Scope(any), Flavor(EnableOverride, ToSubclass, Translatable);
Qualifier DisplayName : string = null, Scope(any), Flavor(EnableOverride, ToSubclass, Translatable);
Qualifier EmbeddedObject : boolean = false, Scope(property, method, parameter), Flavor(DisableOverride, ToSubclass);
Qualifier Exception : boolean = false, Scope(class, indication), Flavor(DisableOverride, ToSubclass);
Qualifier Experimental : boolean = false, Scope(any), Flavor(EnableOverride, Restricted);
Qualifier Gauge : boolean = false, Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier In : boolean = true, Scope(parameter), Flavor(DisableOverride, ToSubclass);
Qualifier Indication : boolean = false, Scope(class, indication), Flavor(DisableOverride, ToSubclass);
Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride, ToSubclass);
Qualifier MappingStrings : string[], Scope(any), Flavor(EnableOverride, ToSubclass);
Qualifier Max : uint32 = null, Scope(reference), Flavor(EnableOverride, ToSubclass);
Qualifier MaxLen : uint32 = null, Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier MaxValue : sint64 = null, Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier Min : uint32 = 0, Scope(reference), Flavor(EnableOverride, ToSubclass);
Qualifier MinLen : uint32 = 0, Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier MinValue : sint64 = null, Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier ModelCorrespondence : string[], Scope(any), Flavor(EnableOverride, ToSubclass);
Qualifier NonLocal : string = null, Scope(reference), Flavor(EnableOverride, ToSubclass);
Qualifier NonLocalType : string = null, Scope(reference), Flavor(EnableOverride, ToSubclass);
Qualifier NullValue : string = null, Scope(property), Flavor(EnableOverride, ToSubclass);
Qualifier Octetstring : boolean = false, Scope(property, method, parameter), Flavor(DisableOverride, ToSubclass);
Qualifier Out : boolean = false, Scope(parameter), Flavor(DisableOverride, ToSubclass);
Qualifier Override : string = null, Scope(property, reference, method), Flavor(EnableOverride, Restricted);
Qualifier Propagated : string = null, Scope(property), Flavor(DisableOverride, ToSubclass);
Qualifier Provider : string = null, Scope(any), Flavor(EnableOverride, ToSubclass);
Qualifier Read : boolean = true, Scope(property), Flavor(EnableOverride, ToSubclass);
Qualifier Required : boolean = false, Scope(property, reference, method, parameter), Flavor(DisableOverride, ToSubclass);
Qualifier Revision : string = null, Scope(class, association, indication), Flavor(EnableOverride, Restricted, Translatable);
Qualifier Schema : string = null, Scope(property, method), Flavor(DisableOverride, ToSubclass, Translatable);
Qualifier Source : string = null, Scope(class, association, indication), Flavor(EnableOverride, ToSubclass);
Qualifier SourceType : string = null, Scope(class, association, indication), Flavor(EnableOverride, ToSubclass);
Qualifier Static : boolean = false, Scope(property, method), Flavor(DisableOverride, ToSubclass);
Qualifier Terminal : boolean = false, Scope(class, association, indication), Flavor(EnableOverride, ToSubclass);
Qualifier UMLPackagePath : string = null, Scope(class, association, indication), Flavor(EnableOverride, ToSubclass);
Qualifier Units : string = null, Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass, Translatable);
Qualifier ValueMap : string[], Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass);
Qualifier Values : string[], Scope(property, method, parameter), Flavor(EnableOverride, ToSubclass, Translatable);
Qualifier Version : string = null, Scope(class, association, indication), Flavor(EnableOverride, Restricted, Translatable);
Qualifier Weak : boolean = false, Scope(reference), Flavor(DisableOverride, ToSubclass);
Qualifier Write : boolean = false, Scope(property), Flavor(EnableOverride, ToSubclass);
)mof";

} // namespace cimom
