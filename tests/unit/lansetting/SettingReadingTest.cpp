// What the model finds on the server.

#include "SettingTest.hpp"

#include <cerrno>
#include <type_traits>

namespace
{

static_assert(!std::is_polymorphic_v<ORX_LANSetting>, "it is a plain value");

class SettingReading : public SettingTest
{
  protected:
    ORX_LANSetting model;
};

TEST_F(SettingReading, EverythingIsEmptyBeforeTheFirstRead)
{
    EXPECT_EQ(textOf(model, &ORX_LANSetting::getInstanceID), "");
    EXPECT_EQ(domainNameOf(model), "");
    EXPECT_EQ(primaryOf(model), "");
    EXPECT_EQ(secondaryOf(model), "");
    EXPECT_EQ(switchesOf(model), "0000");
    EXPECT_FALSE(flagOf(model, &ORX_LANSetting::getIsRouterPresent));
    EXPECT_EQ(world.journal(), Lines{}) << "constructing it must not touch the server";
    EXPECT_EQ(imageOf(model), "");
}

TEST_F(SettingReading, AsksTheServerInThisOrder)
{
    givenResolverFile("nameserver 10.0.0.1\n");
    EXPECT_TRUE(model.get());
    EXPECT_EQ(
        world.journal(),
        (Lines{"gethostname 1024", "gethostbyname pbx", "fopen /etc/resolv.conf r", "fclose /etc/resolv.conf",
               "osIsZODAOnePresent", "fopen /kv/etc/kv_netfilter.cfg r", "fopen /kv/etc/kv_netfilter.cfg r",
               "fopen /kv/etc/kv_netfilter.cfg r", "fopen /kv/etc/kv_netfilter.cfg r"}));
}

TEST_F(SettingReading, ChangesNothingOnTheServer)
{
    const std::string file = "domain x\nsearch elsewhere.example\nnameserver 10.0.0.1 x\n";
    givenResolverFile(file);
    givenSwitches("1010");
    const std::string switches = world.read(switchFile);
    EXPECT_TRUE(model.get());
    EXPECT_EQ(world.journal(fakes::Effects), Lines{});
    EXPECT_EQ(resolverFile(), file);
    EXPECT_EQ(world.read(switchFile), switches);
}

TEST_F(SettingReading, FindsEverythingInOneGo)
{
    givenResolverFile("search site.example\nnameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    givenSwitches("1111");
    world.routerPresent = true;
    EXPECT_TRUE(model.get());
    EXPECT_EQ(domainNameOf(model), "site.example");
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
    EXPECT_EQ(switchesOf(model), "1111");
    EXPECT_TRUE(flagOf(model, &ORX_LANSetting::getIsRouterPresent));
    EXPECT_EQ(textOf(model, &ORX_LANSetting::getInstanceID), "") << "nothing ever sets it";
}

// --- host name

TEST_F(SettingReading, TheDomainComesFromTheOfficialHostName)
{
    world.hostName = "alias.other.example";
    world.officialHostName = "pbx.site.example";
    model.get();
    EXPECT_EQ(domainNameOf(model), "site.example");
    EXPECT_EQ(world.journal(fakes::Host), (Lines{"gethostname 1024", "gethostbyname alias.other.example"}));
}

TEST_F(SettingReading, AnOfficialHostNameWithoutADotGivesTheEmptyDomain)
{
    world.officialHostName = "pbx";
    model.get();
    EXPECT_EQ(domainNameOf(model), "");
}

TEST_F(SettingReading, AnUnknownOwnNameIsLoggedAndGivesTheEmptyDomain)
{
    model.get();
    world.clearJournal();
    givenResolverFile("search site.example\nnameserver 10.0.0.1\n");
    world.failNth(1, "gethostname", EINVAL);
    EXPECT_TRUE(model.get());
    EXPECT_EQ(domainNameOf(model), "");
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(world.journal(fakes::Host | fakes::Log),
              (Lines{"gethostname 1024", "gLogger ERROR Cannot get host name. Error code is: 22"}));
    EXPECT_EQ(imageOf(model), "search\t\nnameserver 10.0.0.1\n");
}

TEST_F(SettingReading, AHostNameThatFillsTheBufferIsCutOff)
{
    world.hostName = std::string(2000, 'h');
    model.get();
    EXPECT_EQ(world.journal(fakes::Host)[1], "gethostbyname " + std::string(1023, 'h'));
}

struct Code {
    int code;
    const char* text;
};

/// Codes are printed as signed 8-bit numbers.
const Code codes[] = {{22, "22"}, {127, "127"}, {128, "-128"}, {200, "-56"}, {255, "-1"}, {256, "0"}};

TEST_F(SettingReading, TheCodeOfAnUnknownOwnNameIsASigned8BitNumber)
{
    for (const Code& each : codes) {
        world.clearJournal();
        world.failNth(1, "gethostname", each.code);
        EXPECT_TRUE(model.get());
        EXPECT_EQ(world.journal(fakes::Log),
                  Lines{std::string("gLogger ERROR Cannot get host name. Error code is: ") + each.text});
    }
}

TEST_F(SettingReading, AHostThatCannotBeLookedUpIsAFailure)
{
    for (const Code& each : codes) {
        world.clearJournal();
        world.failNth(1, "gethostbyname", each.code);
        EXPECT_EQ(failureOf([&] { model.get(); }),
                  modelFailure("Error getting host info. #LAN_ERROR_cannotGetHostInfo#"));
        EXPECT_EQ(world.journal(),
                  (Lines{"gethostname 1024", "gethostbyname pbx",
                         std::string("gLogger ERROR Error getting host info. Error code is: ") + each.text}));
    }
}

TEST_F(SettingReading, AHostThatCannotBeLookedUpChangesNoField)
{
    givenResolverFile("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    givenSwitches("1111");
    world.routerPresent = true;
    model.get();

    givenResolverFile("nameserver 10.9.9.9\n");
    givenSwitches("0000");
    world.routerPresent = false;
    world.officialHostName.reset();
    EXPECT_EQ(failureOf([&] { model.get(); }).code, 1);
    EXPECT_EQ(domainNameOf(model), "site.example");
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
    EXPECT_EQ(switchesOf(model), "1111");
    EXPECT_TRUE(flagOf(model, &ORX_LANSetting::getIsRouterPresent));
    EXPECT_EQ(imageOf(model), "nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
}

// --- resolver file

TEST_F(SettingReading, KeepsTheResolverFileForTheNextWrite)
{
    givenResolverFile(
        "# head\nsearch elsewhere.example\nnameserver 10.0.0.1\noptions rotate\nnameserver 10.0.0.2");
    model.get();
    EXPECT_EQ(imageOf(model), "# head\nsearch\tsite.example\nnameserver 10.0.0.1\nnameserver 10.0.0.2");
}

TEST_F(SettingReading, AThirdNameserverEndsTheReadingOfTheFile)
{
    givenResolverFile("nameserver 10.0.0.1\nnameserver 10.0.0.2\nnameserver 10.0.0.3\nsearch site.example\n");
    EXPECT_TRUE(model.get());
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
    EXPECT_EQ(imageOf(model), "nameserver 10.0.0.1\nnameserver 10.0.0.2\nnameserver 10.0.0.3\n");
}

TEST_F(SettingReading, AReadForgetsTheFileOfTheOneBefore)
{
    givenResolverFile("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    model.get();
    givenResolverFile("# empty\n");
    model.get();
    EXPECT_EQ(primaryOf(model), "");
    EXPECT_EQ(secondaryOf(model), "");
    EXPECT_EQ(imageOf(model), "# empty\n");
}

TEST_F(SettingReading, AMissingResolverFileIsNoFailure)
{
    givenResolverFile("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    model.get();
    world.failNth(1, "fopen", ENOENT, "resolv.conf r");
    world.routerPresent = true;
    EXPECT_TRUE(model.get());
    EXPECT_EQ(primaryOf(model), "");
    EXPECT_EQ(secondaryOf(model), "");
    EXPECT_TRUE(flagOf(model, &ORX_LANSetting::getIsRouterPresent));
    EXPECT_EQ(imageOf(model), "");
}

TEST_F(SettingReading, AResolverLineOf1023CharactersIsReadInOnePiece)
{
    const std::string line = "nameserver " + std::string(1011, 'a') + "\n";
    ASSERT_EQ(line.size(), 1023U);
    givenResolverFile(line + "nameserver 10.0.0.2\n");
    model.get();
    EXPECT_EQ(primaryOf(model), std::string(1011, 'a'));
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
    EXPECT_EQ(imageOf(model), line + "nameserver 10.0.0.2\n");
}

TEST_F(SettingReading, ALongerResolverLineIsReadInPieces)
{
    const std::string piece = "# " + std::string(1021, 'c');
    ASSERT_EQ(piece.size(), 1023U);
    givenResolverFile(piece + "nameserver 10.0.0.1\n");
    model.get();
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(imageOf(model), piece + "nameserver 10.0.0.1\n");
}

TEST_F(SettingReading, ANulInTheResolverFileEndsItsLine)
{
    givenResolverFile(std::string("nameserver 10.0.0.1\0x\nnameserver 10.0.0.2\n", 42));
    model.get();
    EXPECT_EQ(primaryOf(model), "10.0.0.1");
    EXPECT_EQ(secondaryOf(model), "10.0.0.2");
}

// --- router card

TEST_F(SettingReading, ARouterCardComesAndGoes)
{
    world.routerPresent = true;
    model.get();
    EXPECT_TRUE(flagOf(model, &ORX_LANSetting::getIsRouterPresent));
    world.routerPresent = false;
    model.get();
    EXPECT_FALSE(flagOf(model, &ORX_LANSetting::getIsRouterPresent));
}

TEST_F(SettingReading, ARouterCardThatCannotBeAskedForIsAFailure)
{
    for (const Code& each : codes) {
        world.clearJournal();
        world.failNth(1, "osIsZODAOnePresent", each.code);
        EXPECT_EQ(failureOf([&] { model.get(); }),
                  modelFailure("Error reading information#LAN_ERROR_cannotReadInformation#"));
        EXPECT_EQ(world.journal(fakes::Os | fakes::Log),
                  (Lines{"osIsZODAOnePresent",
                         std::string("gLogger ERROR Error reading information: zoda one present returns ") +
                             each.text}));
    }
}

TEST_F(SettingReading, ARouterCardThatCannotBeAskedForLeavesTheSwitchesAlone)
{
    givenSwitches("1111");
    world.routerPresent = true;
    model.get();

    world.officialHostName = "pbx.new.example";
    givenResolverFile("nameserver 10.9.9.9\nnameserver 10.9.9.8\n");
    givenSwitches("0000");
    world.failNth(1, "osIsZODAOnePresent", 5);
    world.clearJournal();
    EXPECT_EQ(failureOf([&] { model.get(); }).code, 1);
    EXPECT_EQ(domainNameOf(model), "new.example");
    EXPECT_EQ(primaryOf(model), "10.9.9.9");
    EXPECT_FALSE(flagOf(model, &ORX_LANSetting::getIsRouterPresent));
    EXPECT_EQ(switchesOf(model), "1111");
    EXPECT_EQ(secondaryOf(model), "10.9.9.8");
    for (const std::string& line : world.journal(fakes::File))
        EXPECT_EQ(line.find(switchFile), std::string::npos) << line;
    EXPECT_EQ(imageOf(model), "nameserver 10.9.9.9\nnameserver 10.9.9.8\n");
}

TEST_F(SettingReading, TwoFailuresComeFromTwoLines)
{
    world.failNth(1, "gethostbyname", 1);
    const Failure host = failureOf([&] { model.get(); });
    world.failNth(1, "osIsZODAOnePresent", 1);
    const Failure router = failureOf([&] { model.get(); });
    EXPECT_NE(host.line, router.line);
}

} // namespace
