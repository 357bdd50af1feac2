// Makes a libFuzzer program of the one target that the build names.

#include "Targets.hpp"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // What the target throws is not caught: that is how libFuzzer learns of it.
    fuzz::KV_FUZZ_TARGET(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
