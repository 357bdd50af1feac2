#ifndef KV_TESTS_UNIT_LANSETTING_MODELFAULTS_HPP
#define KV_TESTS_UNIT_LANSETTING_MODELFAULTS_HPP

#include <set>
#include <string>

/// Results that the switch store and the model's getters can give by their contracts but never do today. The
/// linker lets the product's calls pass by here.
struct ModelFaults {
    std::set<std::string> unreadableSwitches; ///< keys for which kv_get_netfilter_config returns -1
    std::set<std::string> unstorableSwitches; ///< keys for which kv_set_netfilter_config returns -1
    bool getInstanceIDFails = false;          ///< the getters return false and leave something behind
    bool getDomainNameFails = false;
    bool getPrimaryDNSFails = false;
    bool getSecondaryDNSFails = false;
};

extern ModelFaults modelFaults;

#endif
