#ifndef KV_TESTS_RECORDED_EXCHANGES_HPP
#define KV_TESTS_RECORDED_EXCHANGES_HPP

#include <string>
#include <vector>

/// The exchanges of tests/data/cim-xml, byte for byte. Their README describes the form of the files.
namespace recorded
{

struct Exchange {
    std::string name;     ///< "001-wbemcli-ein"
    int number = 0;       ///< 1
    std::string request;  ///< what the client sent
    std::string response; ///< what OpenWBEM answered; empty when it answered nothing
    std::string provider; ///< what the provider printed meanwhile; empty when it was not called
};

/// All of them, in the order in which they were made.
std::vector<Exchange> allExchanges();

/// Those of one file. What is not in the form of these files is a std::runtime_error.
std::vector<Exchange> exchangesIn(const std::string& text);

} // namespace recorded

#endif
