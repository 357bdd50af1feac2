#include "shell/Completion.hpp"

#include <gtest/gtest.h>

using namespace lanctl::shell;

namespace
{

using Words = std::vector<std::string>;

/// An app of three commands.
Words completed(const std::string& line)
{
    CLI::App app{"", "lanctl"};
    std::string text;
    bool flag = false;
    app.add_option("--server", text);
    app.add_option("-s", text);
    app.add_flag("--insecure", flag);
    app.add_subcommand("set")->add_flag("-y,--yes", flag);
    app.add_subcommand("show")->add_flag("--json", flag);
    app.add_subcommand("apply")->add_option("FILE", text);
    return completions(app, line);
}

} // namespace

TEST(Completion, namesCommands)
{
    EXPECT_EQ(completed("lanctl "), (Words{"apply", "set", "show"}));
    EXPECT_EQ(completed("lanctl s"), (Words{"set", "show"}));
    EXPECT_EQ(completed("lanctl --insecure a"), Words{"apply"});
    EXPECT_EQ(completed("lanctl x"), Words{});
}

TEST(Completion, namesOptions)
{
    EXPECT_EQ(completed("lanctl --s"), Words{"--server"});
    EXPECT_EQ(completed("lanctl set --y"), Words{"--yes"});
    EXPECT_EQ(completed("lanctl show -"), (Words{"--help", "--insecure", "--json", "--server", "-h", "-s"}));
}

TEST(Completion, namesObjects)
{
    EXPECT_EQ(completed("lanctl show "), (Words{"eth0", "eth1", "eth2", "lan", "marking"}));
    EXPECT_EQ(completed("lanctl show eth0 l"), Words{"lan"});
    EXPECT_EQ(completed("lanctl set e"), (Words{"eth0", "eth1", "eth2"}));
}

TEST(Completion, namesKeysAndValues)
{
    EXPECT_EQ(completed("lanctl set eth1 "), (Words{"address=", "dhcp=", "gateway=", "mask=", "mtu="}));
    EXPECT_EQ(completed("lanctl set eth1 mtu=1400 d"), Words{"dhcp="});
    EXPECT_EQ(completed("lanctl set eth1 dhcp=o"), (Words{"dhcp=off", "dhcp=on"}));
    EXPECT_EQ(completed("lanctl set lan icmp-filter=of"), Words{"icmp-filter=off"});
    EXPECT_EQ(completed("lanctl set marking voice=E"), Words{"voice=EF"});
    EXPECT_EQ(completed("lanctl set marking voice=c").front(), "voice=custom:");
    EXPECT_EQ(completed("lanctl set marking voice=custom:E"), Words{"voice=custom:EF"});
    EXPECT_EQ(completed("lanctl set eth1 mtu="), Words{});
    EXPECT_EQ(completed("lanctl set eth1 voice="), Words{});
}

TEST(Completion, leavesFilesAndFreeValuesToTheShell)
{
    EXPECT_EQ(completed("lanctl apply w"), Words{});
    EXPECT_EQ(completed("lanctl --server h"), Words{});
    EXPECT_EQ(completed(""), (Words{"apply", "set", "show"}));
}
