#ifndef OPENWBEM_SRC_STRING_DATA_HPP_
#define OPENWBEM_SRC_STRING_DATA_HPP_

#include "COWData.hpp"
#include "OW_String.hpp"
#include <string>
#include <utility>

namespace OpenWBEM
{

struct String::Data : COWData<String::Data> {
    explicit Data(std::string content) : text(std::move(content)) {}

    std::string text;
};

} // namespace OpenWBEM

#endif
