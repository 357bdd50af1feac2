#ifndef KV_TESTS_UNIT_LANSETTING_SETTINGTEST_HPP
#define KV_TESTS_UNIT_LANSETTING_SETTINGTEST_HPP

#include "Environment.hpp"
#include "ModelFaults.hpp"
#include "lansetting/ORX_LANSettingProvider.hpp"
#include "lansetting/ResolverFile.hpp"

#include <OW_CIMException.hpp>

#include <gtest/gtest.h>

#include <string>

using fakes::Lines;

/// What a client and a log reader find in an exception of the library.
struct Failure {
    int code = 0;     ///< 0: nothing was thrown
    std::string text; ///< as it was given to the exception, without OpenWBEM's decoration
    std::string unit;
    int line = 0;

    bool operator==(const Failure& other) const
    {
        return code == other.code && text == other.text && unit == other.unit;
    }
};

inline std::ostream& operator<<(std::ostream& out, const Failure& failure)
{
    return out << failure.unit << " " << failure.code << " \"" << failure.text << "\"";
}

template <typename Operation>
Failure failureOf(const Operation& operation)
{
    try {
        operation();
    } catch (const OpenWBEM::CIMException& e) {
        return {e.getErrNo(), e.OpenWBEM::Exception::getMessage(), e.getFile(), e.getLine()};
    }
    return {};
}

/// A failure that the model raises.
inline Failure modelFailure(const std::string& text)
{
    return {1, text, "ORX_LANSetting.cpp"};
}

/// The text that a getter of the model gives.
inline std::string textOf(const ORX_LANSetting& model, bool (ORX_LANSetting::*get)(OpenWBEM::String&) const)
{
    OpenWBEM::String value("untouched");
    EXPECT_TRUE((model.*get)(value));
    return value.c_str();
}

inline bool flagOf(const ORX_LANSetting& model, bool (ORX_LANSetting::*get)(bool&) const)
{
    bool value = false;
    bool other = true;
    EXPECT_TRUE((model.*get)(value));
    EXPECT_TRUE((model.*get)(other));
    EXPECT_EQ(value, other) << "the getter must set its output in any case";
    return value;
}

inline std::string domainNameOf(const ORX_LANSetting& model)
{
    return textOf(model, &ORX_LANSetting::getDomainName);
}

inline std::string primaryOf(const ORX_LANSetting& model)
{
    return textOf(model, &ORX_LANSetting::getPrimaryDNS);
}

inline std::string secondaryOf(const ORX_LANSetting& model)
{
    return textOf(model, &ORX_LANSetting::getSecondaryDNS);
}

/// The four switches of the packet filter, in the order ICMP, ARP, broadcast, conflict.
inline std::string switchesOf(const ORX_LANSetting& model)
{
    std::string digits;
    for (auto get :
         {&ORX_LANSetting::getIsIcmpFilterEnabled, &ORX_LANSetting::getIsArpFilterEnabled,
          &ORX_LANSetting::getIsBroadcastFilterEnabled, &ORX_LANSetting::getIsIPAddressConflictEnabled})
        digits += flagOf(model, get) ? '1' : '0';
    return digits;
}

/// A server on which the library has just been loaded: the global model is as it was constructed.
class SettingTest : public fakes::ServerTest
{
  protected:
    SettingTest() { forgetAll(); }
    ~SettingTest() override { forgetAll(); }

    static void forgetAll()
    {
        setting = ORX_LANSetting();
        modelFaults = ModelFaults();
    }

    void givenResolverFile(const std::string& content) { world.write(resolveFile, content); }
    std::string resolverFile() const { return world.read(resolveFile); }

    /// The switch file with a digit for each of ICMP, ARP, broadcast and conflict.
    void givenSwitches(const std::string& digits)
    {
        world.write(switchFile, std::string("kv_netfilter_icmp ") + digits[0] + "\nkv_netfilter_arp " +
                                    digits[1] + "\nkv_netfilter_broadcast " + digits[2] +
                                    "\nkv_netfilter_ipconflict " + digits[3] + "\n");
    }

    /// What the model keeps of the resolver file: a write to a nameserver line that does not exist shows it.
    std::string imageOf(ORX_LANSetting model)
    {
        const std::string before = resolverFile();
        model.updateNameserver("END", 1000);
        std::string image = resolverFile();
        image.erase(image.size() - std::string("nameserver END\n").size());
        givenResolverFile(before);
        world.clearJournal();
        return image;
    }

    const char* const switchFile = "/kv/etc/kv_netfilter.cfg";
};

#endif
