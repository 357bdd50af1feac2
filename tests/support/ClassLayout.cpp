#include "ClassLayout.hpp"

#include <cxxabi.h>

#include <cstdlib>

namespace
{

std::string nameOf(const std::type_info& type)
{
    int status = 0;
    char* const readable = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
    std::string name = readable ? readable : type.name();
    std::free(readable);
    return name;
}

} // namespace

std::vector<std::string> fakes::basesOf(const std::type_info& type)
{
    std::vector<std::string> bases;
    const auto* const description = dynamic_cast<const abi::__vmi_class_type_info*>(&type);
    for (unsigned int i = 0; description && i < description->__base_count; ++i) {
        const abi::__base_class_type_info& base = description->__base_info[i];
        bases.push_back((base.__is_public_p() ? "public " : "") +
                        ((base.__is_virtual_p() ? "virtual " : "") + nameOf(*base.__base_type)));
    }
    return bases;
}
