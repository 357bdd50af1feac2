// Giving the server another DNS domain.

#include "SettingTest.hpp"

#include <cerrno>

namespace
{

class SettingDomain : public SettingTest
{
  protected:
    ORX_LANSetting model;
};

TEST_F(SettingDomain, GoesToTheHostsTableTheResolverFileAndTheRegistry)
{
    EXPECT_TRUE(model.setDomainName("new.example"));
    EXPECT_EQ(
        world.journal(),
        (Lines{"dhcpIpInfoRequestDHCPLANSemaphore", "runcommand /kv/bin/updatehosts domainname new.example",
               "dhcpIpInfoReleaseDHCPLANSemaphore", "fopen /etc/resolv.conf w", "fclose /etc/resolv.conf",
               "KvuSetRegEntryUint16Ex 5 DNS domainName_Flag 1"}));
    EXPECT_EQ(domainNameOf(model), "new.example");
}

TEST_F(SettingDomain, TheSemaphoreIsHeldExactlyWhileTheCommandRuns)
{
    bool heldWhileRunning = false;
    world.onCommand = [&](const std::string&) { heldWhileRunning = world.semaphoreHeld; };
    model.setDomainName("new.example");
    EXPECT_TRUE(heldWhileRunning);
    EXPECT_FALSE(world.semaphoreHeld);
}

TEST_F(SettingDomain, TheFileIsWrittenAfterTheCommandHasRun)
{
    givenResolverFile("search site.example\n");
    model.get();
    std::string fileAtTheCommand;
    world.onCommand = [&](const std::string&) { fileAtTheCommand = resolverFile(); };
    model.setDomainName("new.example");
    EXPECT_EQ(fileAtTheCommand, "search site.example\n");
    EXPECT_EQ(resolverFile(), "search new.example\n");
}

TEST_F(SettingDomain, ReplacesWhateverFollowsSearchInTheFile)
{
    givenResolverFile("# head\nsearch site.example\nnameserver 10.0.0.1\n");
    model.get();
    model.setDomainName("new.example");
    EXPECT_EQ(resolverFile(), "# head\nsearch new.example\nnameserver 10.0.0.1\n");
    EXPECT_EQ(imageOf(model), resolverFile());
}

TEST_F(SettingDomain, IsAddedToAFileWithoutASearchLine)
{
    givenResolverFile("nameserver 10.0.0.1\n");
    model.get();
    model.setDomainName("new.example");
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nsearch new.example\n");
}

TEST_F(SettingDomain, LinesThatTheReadDroppedAreLost)
{
    givenResolverFile("domain x\noptions rotate\nsearch a.example b.example\nnameserver 10.0.0.1\n");
    model.get();
    model.setDomainName("new.example");
    EXPECT_EQ(resolverFile(), "nameserver 10.0.0.1\nsearch new.example\n");
}

TEST_F(SettingDomain, BeforeAnyReadOnlyTheNewLineRemains)
{
    givenResolverFile("search site.example\nnameserver 10.0.0.1\n");
    model.setDomainName("new.example");
    EXPECT_EQ(resolverFile(), "search new.example\n");
}

TEST_F(SettingDomain, IsWrittenEvenWhenItIsTheOneInForce)
{
    model.get();
    world.clearJournal();
    EXPECT_TRUE(model.setDomainName("site.example"));
    EXPECT_EQ(world.journal().size(), 6U);
}

TEST_F(SettingDomain, TheCommandsResultAndOutputDecideNothing)
{
    fakes::CommandResult failed;
    failed.status = 7;
    failed.out = Lines{"no\n"};
    failed.err = Lines{"such host\n"};
    world.commands["/kv/bin/updatehosts domainname new.example"] = failed;
    EXPECT_TRUE(model.setDomainName("new.example"));
    EXPECT_EQ(domainNameOf(model), "new.example");
    EXPECT_EQ(resolverFile(), "search new.example\n");
    EXPECT_EQ(world.journal(fakes::Log), Lines{});
}

TEST_F(SettingDomain, ASemaphoreThatCannotBeHadDecidesNothing)
{
    world.failNth(1, "dhcpIpInfoRequestDHCPLANSemaphore", 1);
    EXPECT_TRUE(model.setDomainName("new.example"));
    EXPECT_EQ(
        world.journal(fakes::Lock | fakes::Command),
        (Lines{"dhcpIpInfoRequestDHCPLANSemaphore", "runcommand /kv/bin/updatehosts domainname new.example",
               "dhcpIpInfoReleaseDHCPLANSemaphore"}));
}

TEST_F(SettingDomain, AFileThatCannotBeWrittenLeavesTheFlagAloneToo)
{
    givenResolverFile("search site.example\n");
    model.get();
    world.clearJournal();
    world.failNth(1, "fopen", EROFS, "resolv.conf w");
    EXPECT_TRUE(model.setDomainName("new.example"));
    EXPECT_EQ(world.journal(), (Lines{"dhcpIpInfoRequestDHCPLANSemaphore",
                                      "runcommand /kv/bin/updatehosts domainname new.example",
                                      "dhcpIpInfoReleaseDHCPLANSemaphore", "fopen /etc/resolv.conf w"}));
    EXPECT_EQ(resolverFile(), "search site.example\n");
    EXPECT_EQ(domainNameOf(model), "new.example");
    EXPECT_EQ(imageOf(model), "search new.example\n") << "the next write has it all the same";
}

TEST_F(SettingDomain, AFileThatOpensButTakesNoContentCountsAsWritten)
{
    for (const char* call : {"fwrite", "fclose"}) {
        givenResolverFile("search site.example\n");
        model.get();
        world.clearJournal();
        world.failNth(1, call, ENOSPC, "resolv.conf");
        EXPECT_TRUE(model.setDomainName("new.example"));
        EXPECT_EQ(world.journal(fakes::File | fakes::Registry | fakes::Log),
                  (Lines{"fopen /etc/resolv.conf w", "fclose /etc/resolv.conf",
                         "KvuSetRegEntryUint16Ex 5 DNS domainName_Flag 1"}))
            << call;
        EXPECT_EQ(domainNameOf(model), "new.example") << call;
        EXPECT_EQ(imageOf(model), "search new.example\n") << call;
    }
}

TEST_F(SettingDomain, ARegistryThatRefusesTheFlagDecidesNothing)
{
    world.failNth(1, "KvuSetRegEntryUint16Ex", 9);
    EXPECT_TRUE(model.setDomainName("new.example"));
    EXPECT_EQ(world.journal(fakes::Log), Lines{});
}

TEST_F(SettingDomain, ANameThatIsNotValidIsRefusedBeforeAnythingIsDone)
{
    givenResolverFile("search site.example\n");
    model.get();
    for (const char* name : {"", "1site", "-site", ".site", "my_site", "site example", "site;reboot"}) {
        world.clearJournal();
        EXPECT_EQ(failureOf([&] { model.setDomainName(name); }),
                  modelFailure("Invalid domain name#LAN_ERROR_domainNameBadFormat#"));
        EXPECT_EQ(world.journal(), Lines{"gLogger ERROR Invalid domain name"});
    }
    EXPECT_EQ(domainNameOf(model), "site.example");
    EXPECT_EQ(imageOf(model), "search site.example\n");
}

TEST_F(SettingDomain, ALongNameIsHandedOnWhole)
{
    const std::string name = "a" + std::string(4999, '-');
    EXPECT_TRUE(model.setDomainName(name.c_str()));
    EXPECT_EQ(world.journal(fakes::Command), Lines{"runcommand /kv/bin/updatehosts domainname " + name});
    EXPECT_EQ(resolverFile(), "search " + name + "\n");
}

TEST_F(SettingDomain, OddButAcceptedNames)
{
    for (const char* name : {"a-b.c-", "a..b"}) {
        world.clearJournal();
        EXPECT_TRUE(model.setDomainName(name));
        EXPECT_EQ(world.journal(fakes::Command),
                  Lines{std::string("runcommand /kv/bin/updatehosts domainname ") + name});
    }
}

} // namespace
