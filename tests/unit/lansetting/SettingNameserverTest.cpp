// Giving the server other name servers.

#include "SettingTest.hpp"

#include <cerrno>

namespace
{

class SettingNameserver : public SettingTest
{
  protected:
    /// A model that has read the file, with an empty journal.
    void givenRead(const std::string& file)
    {
        givenResolverFile(file);
        model.get();
        world.clearJournal();
    }

    ORX_LANSetting model;
};

TEST_F(SettingNameserver, ThePrimaryGoesToTheFileAndTheRegistry)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    EXPECT_TRUE(model.setPrimaryDNS("10.1.1.1"));
    EXPECT_EQ(world.journal(),
              (Lines{"dhcpIpInfoIsIPAddrValid 10.1.1.1", "fopen /etc/resolv.conf w",
                     "fclose /etc/resolv.conf", "KvuSetRegEntryUint16Ex 5 DNS primaryDNS_Flag 1"}));
    EXPECT_EQ(resolverFile(), "nameserver 10.1.1.1\nnameserver 10.0.0.2\n");
    EXPECT_EQ(primaryOf(model), "10.1.1.1");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
    EXPECT_EQ(imageOf(model), resolverFile());
}

TEST_F(SettingNameserver, TheSecondaryGoesToTheFileAndTheRegistry)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    EXPECT_TRUE(model.setSecondaryDNS("10.1.1.1"));
    EXPECT_EQ(world.journal(),
              (Lines{"dhcpIpInfoIsIPAddrValid 10.1.1.1", "fopen /etc/resolv.conf w",
                     "fclose /etc/resolv.conf", "KvuSetRegEntryUint16Ex 5 DNS secondaryDNS_Flag 1"}));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nnameserver 10.1.1.1\n");
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(secondaryOf(model), "10.1.1.1");
    EXPECT_EQ(imageOf(model), resolverFile());
}

TEST_F(SettingNameserver, ASecondaryBesideALonePrimaryIsAddedAtTheEnd)
{
    givenRead("nameserver 10.0.0.1\nsearch site.example\n");
    EXPECT_TRUE(model.setSecondaryDNS("10.1.1.1"));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nsearch site.example\nnameserver 10.1.1.1\n");
}

TEST_F(SettingNameserver, TheAddressInForceDoesNothing)
{
    givenRead("nameserver 10.0.0.1\nnameserver nonsense\n");
    EXPECT_TRUE(model.setPrimaryDNS("10.0.0.1"));
    EXPECT_TRUE(model.setSecondaryDNS("nonsense"));
    EXPECT_EQ(world.journal(), Lines{}) << "it is not even checked";
}

TEST_F(SettingNameserver, TheEmptyTextRemovesTheNameserver)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    EXPECT_TRUE(model.setPrimaryDNS(""));
    EXPECT_EQ(world.journal(), (Lines{"fopen /etc/resolv.conf w", "fclose /etc/resolv.conf",
                                      "KvuSetRegEntryUint16Ex 5 DNS primaryDNS_Flag 1"}));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.2\n");
    EXPECT_EQ(primaryOf(model), "");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2") << "it is the secondary until the next read";
}

TEST_F(SettingNameserver, TheEmptyTextRemovesTheSecondaryToo)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    EXPECT_TRUE(model.setSecondaryDNS(""));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\n");
    EXPECT_EQ(secondaryOf(model), "");
}

TEST_F(SettingNameserver, TheEmptyTextDoesNothingWhenThereIsNone)
{
    givenRead("search site.example\n");
    EXPECT_TRUE(model.setPrimaryDNS(""));
    EXPECT_TRUE(model.setSecondaryDNS(""));
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingNameserver, AnAddressThatTheServerRefusesIsAFailureBeforeAnythingIsDone)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    world.unusableAddresses = {"224.0.0.1"};
    for (const char* address : {"10.0.0", "nonsense", "224.0.0.1", " ", "10.0.0.1 "}) {
        world.clearJournal();
        const Failure expected = modelFailure("Invalid IP address format#LAN_ERROR_invalidIP#");
        const std::string query = std::string("dhcpIpInfoIsIPAddrValid ") + address;
        EXPECT_EQ(failureOf([&] { model.setPrimaryDNS(address); }), expected);
        EXPECT_EQ(failureOf([&] { model.setSecondaryDNS(address); }), expected);
        EXPECT_EQ(world.journal(), (Lines{query, "gLogger ERROR Invalid IP address format", query,
                                          "gLogger ERROR Invalid IP address format"}));
    }
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
    EXPECT_EQ(imageOf(model), "nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
}

TEST_F(SettingNameserver, EveryAnswerButZeroMakesAnAddressValid)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    world.addressVerdicts = {{"10.1.1.1", 2}, {"10.1.1.2", -1}};
    EXPECT_TRUE(model.setPrimaryDNS("10.1.1.1"));
    EXPECT_TRUE(model.setSecondaryDNS("10.1.1.2"));
    EXPECT_EQ(resolverFile(), "nameserver 10.1.1.1\nnameserver 10.1.1.2\n");
    EXPECT_EQ(world.journal(fakes::Log), Lines{});
}

TEST_F(SettingNameserver, BeforeAnyReadOnlyTheNewLineRemains)
{
    givenResolverFile("search site.example\nnameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    EXPECT_TRUE(model.setSecondaryDNS("10.1.1.1"));
    EXPECT_EQ(resolverFile(), "nameserver 10.1.1.1\n");
}

TEST_F(SettingNameserver, AFileThatCannotBeWrittenStillSetsFlagAndField)
{
    givenRead("nameserver 10.0.0.1\n");
    world.failNth(2, "fopen", EROFS, "resolv.conf w");
    world.failNth(1, "fopen", EROFS, "resolv.conf w");
    EXPECT_TRUE(model.setPrimaryDNS("10.1.1.1"));
    EXPECT_TRUE(model.setSecondaryDNS("10.1.1.2"));
    EXPECT_EQ(world.journal(),
              (Lines{"dhcpIpInfoIsIPAddrValid 10.1.1.1", "fopen /etc/resolv.conf w",
                     "KvuSetRegEntryUint16Ex 5 DNS primaryDNS_Flag 1", "dhcpIpInfoIsIPAddrValid 10.1.1.2",
                     "fopen /etc/resolv.conf w", "KvuSetRegEntryUint16Ex 5 DNS secondaryDNS_Flag 1"}));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\n");
    EXPECT_EQ(primaryOf(model), "10.1.1.1");
    EXPECT_EQ(secondaryOf(model), "10.1.1.2");
    EXPECT_EQ(imageOf(model), "nameserver 10.1.1.1\nnameserver 10.1.1.2\n");
}

TEST_F(SettingNameserver, AFileThatOpensButTakesNoContentStillSetsFlagAndField)
{
    for (const char* call : {"fwrite", "fclose"}) {
        givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
        world.failNth(1, call, ENOSPC, "resolv.conf");
        EXPECT_TRUE(model.setSecondaryDNS("10.1.1.2"));
        EXPECT_EQ(world.journal(),
                  (Lines{"dhcpIpInfoIsIPAddrValid 10.1.1.2", "fopen /etc/resolv.conf w",
                         "fclose /etc/resolv.conf", "KvuSetRegEntryUint16Ex 5 DNS secondaryDNS_Flag 1"}))
            << call;
        EXPECT_EQ(secondaryOf(model), "10.1.1.2") << call;
        EXPECT_EQ(imageOf(model), "nameserver 10.0.0.1\nnameserver 10.1.1.2\n") << call;
    }
}

TEST_F(SettingNameserver, ARegistryThatRefusesTheFlagDecidesNothing)
{
    world.failAll("KvuSetRegEntryUint16Ex", 9);
    EXPECT_TRUE(model.setPrimaryDNS("10.1.1.1"));
    EXPECT_TRUE(model.setSecondaryDNS("10.1.1.2"));
    EXPECT_EQ(primaryOf(model), "10.1.1.1");
    EXPECT_EQ(world.journal(fakes::Log), Lines{});
}

TEST_F(SettingNameserver, ACommentThatMentionsNameserverIsTheOneRewritten)
{
    givenRead("# nameserver of the site\nnameserver 10.0.0.1\n");
    EXPECT_TRUE(model.setPrimaryDNS("10.1.1.1"));
    EXPECT_EQ(resolverFile(), "# nameserver 10.1.1.1\nnameserver 10.0.0.1\n");
}

TEST_F(SettingNameserver, RemovalWhereTheKeptTextHasNoSuchLineAddsAnEmptyOne)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    model.setPrimaryDNS("");
    EXPECT_TRUE(model.setSecondaryDNS(""));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.2\nnameserver \n");
}

TEST_F(SettingNameserver, AWriteReplacesTheWholeFile)
{
    givenRead("nameserver 10.0.0.1\n");
    givenResolverFile("nameserver 10.0.0.1\n" + std::string(5000, '#') + "\n");
    model.setPrimaryDNS("10.1.1.1");
    EXPECT_EQ(resolverFile(), "nameserver 10.1.1.1\n");
}

TEST_F(SettingNameserver, AnUpdateOfALineTouchesTheFileOnly)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    model.updateNameserver("10.1.1.1", 1);
    EXPECT_EQ(world.journal(), (Lines{"fopen /etc/resolv.conf w", "fclose /etc/resolv.conf"}));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nnameserver 10.1.1.1\n");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
}

TEST_F(SettingNameserver, AnUpdateReachesTheThirdLineToo)
{
    givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\nnameserver 10.0.0.3\n");
    model.updateNameserver("10.1.1.1", 2);
    EXPECT_EQ(world.journal(), (Lines{"fopen /etc/resolv.conf w", "fclose /etc/resolv.conf"}));
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nnameserver 10.0.0.2\nnameserver 10.1.1.1\n");
    model.updateNameserver("", 2);
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
}

TEST_F(SettingNameserver, AnUpdateOfALineThatIsNotThereAddsOne)
{
    for (const int number : {2, 3, 1000, -1}) {
        givenRead("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
        model.updateNameserver("10.1.1.1", number);
        EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nnameserver 10.0.0.2\nnameserver 10.1.1.1\n")
            << number;
        EXPECT_EQ(imageOf(model), resolverFile()) << number;
    }
}

TEST_F(SettingNameserver, ChangesBuildUponEachOther)
{
    givenRead("# head\n");
    model.setPrimaryDNS("10.1.1.1");
    model.setSecondaryDNS("10.1.1.2");
    model.setDomainName("new.example");
    model.setPrimaryDNS("10.1.1.3");
    EXPECT_EQ(resolverFile(), "# head\nnameserver 10.1.1.3\nnameserver 10.1.1.2\nsearch new.example\n");
}

} // namespace
