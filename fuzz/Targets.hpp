#ifndef KV_FUZZ_TARGETS_HPP
#define KV_FUZZ_TARGETS_HPP

#include <stdexcept>
#include <string_view>

/// The fuzz targets. Each takes any bytes and throws std::logic_error when something that must hold for all
/// input does not; memory errors are the sanitizers' business.
namespace fuzz
{

/// The input is an interface's configuration file.
void interface_file(std::string_view input);

/// The input is the resolver file, read and changed.
void resolver_file(std::string_view input);

/// The input is a file of keys and values in each style, read, changed, written and read again.
void config_store(std::string_view input);

/// The input is what a client sends for an address, a mask, a gateway and a domain.
void address_and_domain(std::string_view input);

/// The input is a class file of the development object manager.
void mof(std::string_view input);

/// The input is the body of a request to the development object manager.
void cim_xml(std::string_view input);

/// The input is the body of an answer to lanctl.
void cim_answer(std::string_view input);

/// The input is a file with a wanted state for lanctl, which is then planned.
void wanted_state(std::string_view input);

inline void expect(bool holds, const char* what)
{
    if (!holds)
        throw std::logic_error(what);
}

} // namespace fuzz

#endif
