#ifndef OPENWBEM_SRC_CIM_VALUE_DATA_HPP_
#define OPENWBEM_SRC_CIM_VALUE_DATA_HPP_

#include "COWData.hpp"
#include "OW_Bool.hpp"
#include "OW_CIM.hpp"
#include <type_traits>
#include <utility>
#include <variant>

namespace OpenWBEM
{

template <class... Types>
using ScalarOrArray = std::variant<Types..., Array<Types>...>;

// What a value can hold; the types appear in the order of the numbers that CIM-XML knows no other order for.
using CIMContent = ScalarOrArray<Bool, UInt8, Int8, UInt16, Int16, UInt32, Int32, UInt64, Int64, Real32,
                                 Real64, Char16, String, CIMDateTime, CIMObjectPath, CIMClass, CIMInstance>;

struct CIMValue::Data : COWData<CIMValue::Data> {
    template <class T>
    explicit Data(T held) : content(std::move(held))
    {
    }

    CIMContent content;
};

// How a C++ type is called: its CIM type, and its names in the message of a failed get.
template <class T>
struct CIMTypeOf;

#define CIM_TYPE_OF(CPP_TYPE, CIM_TYPE, ARRAY_NAME)                                                          \
    template <>                                                                                              \
    struct CIMTypeOf<CPP_TYPE> {                                                                             \
        static constexpr CIMDataType::Type type = CIMDataType::CIM_TYPE;                                     \
        static constexpr const char* name = #CIM_TYPE;                                                       \
        static constexpr const char* arrayName = ARRAY_NAME " ARRAY";                                        \
    };

CIM_TYPE_OF(Bool, BOOLEAN, "BOOLEAN")
CIM_TYPE_OF(UInt8, UINT8, "UINT8")
CIM_TYPE_OF(Int8, SINT8, "SINT8")
CIM_TYPE_OF(UInt16, UINT16, "UINT16")
CIM_TYPE_OF(Int16, SINT16, "SINT16")
CIM_TYPE_OF(UInt32, UINT32, "UINT32")
CIM_TYPE_OF(Int32, SINT32, "SINT32")
CIM_TYPE_OF(UInt64, UINT64, "UINT64")
CIM_TYPE_OF(Int64, SINT64, "SINT64")
CIM_TYPE_OF(Real32, REAL32, "REAL32")
CIM_TYPE_OF(Real64, REAL64, "REAL64")
CIM_TYPE_OF(Char16, CHAR16, "CHAR16")
CIM_TYPE_OF(String, STRING, "STRING")
CIM_TYPE_OF(CIMDateTime, DATETIME, "DATETIME")
CIM_TYPE_OF(CIMObjectPath, REFERENCE, "OBJECTPATH")
CIM_TYPE_OF(CIMClass, EMBEDDEDCLASS, "EMBEDDEDCLASS")
CIM_TYPE_OF(CIMInstance, EMBEDDEDINSTANCE, "EMBEDDEDINSTANCE")
#undef CIM_TYPE_OF

template <class T>
struct IsArray : std::false_type {
    using Element = T;
};
template <class T>
struct IsArray<Array<T>> : std::true_type {
    using Element = T;
};

template <class T>
struct TypeTag {
    using type = T;
};

// Calls function with the tag of each C++ type whose CIM type is the given one, which is one or none.
template <class Function, class... Types>
void withCppType(CIMDataType::Type type, Function function, TypeTag<std::variant<Types...>>)
{
    const auto offer = [type, &function](auto tag) {
        using T = typename decltype(tag)::type;
        if constexpr (!IsArray<T>::value) {
            if (CIMTypeOf<T>::type == type) {
                function(tag);
            }
        }
    };
    (offer(TypeTag<Types>()), ...);
}

// The text of a value's content as toString and as MOF show it.
String contentToString(const CIMContent& content);
String contentToMOF(const CIMContent& content);

} // namespace OpenWBEM

#endif
