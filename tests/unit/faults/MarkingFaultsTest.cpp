// Every call that an operation on the marking service makes, failing.

#include "FaultMatrix.hpp"

#include <gtest/gtest.h>

using namespace faults;

TEST(MarkingFaults, ReadingAsksNothingOfTheServer)
{
    Server server;
    server.names("ORX_ALGService");
    server.instances("ORX_ALGService");
    server.get(servicePath());
    EXPECT_EQ(Lines{}, server.world.journal(fakes::Everything | fakes::Content));
}

TEST(MarkingFaults, AMarkingIsSetWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({nothingMore, [](Server& server) {
                                         server.modifyService({uint16("QoSMarkVOIPSignaling", 184)});
                                     }}));
}

TEST(MarkingFaults, ACustomMarkingIsSetWhateverFails)
{
    EXPECT_EQ(Lines{},
              consequences({nothingMore, [](Server& server) {
                                server.modifyService({uint16("QoSFaxMedia", 258), uint16("TOSByteFax", 46)});
                            }}));
}

TEST(MarkingFaults, ACustomMarkingIsChangedWhateverFails)
{
    EXPECT_EQ(Lines{},
              consequences({[](Server& server) {
                                server.modifyService({uint16("QoSFaxMedia", 258), uint16("TOSByteFax", 46)});
                            },
                            [](Server& server) { server.modifyService({uint16("TOSByteFax", 47)}); }}));
}

TEST(MarkingFaults, MarkingIsSwitchedOnWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({nothingMore, [](Server& server) {
                                         server.modifyService({flag("KLonKLEnabled", true)});
                                     }}));
}

TEST(MarkingFaults, MarkingIsSwitchedOffWhateverFails)
{
    EXPECT_EQ(Lines{},
              consequences({[](Server& server) { server.modifyService({flag("KLonKLEnabled", true)}); },
                            [](Server& server) { server.modifyService({flag("KLonKLEnabled", false)}); }}));
}

TEST(MarkingFaults, AServiceIsCreatedWhateverFails)
{
    EXPECT_EQ(Lines{},
              consequences({nothingMore, [](Server& server) {
                                server.create(serviceInstance("Other", {uint16("QoSFaxMedia", 184)}));
                            }}));
}

TEST(MarkingFaults, AServiceIsDeletedWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({nothingMore, [](Server& server) { server.remove(servicePath()); }}));
}
