#include "settings/AccessLevels.h"

#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class AccessLevels : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter();
  }
};

TEST_F(AccessLevels, DefaultIs2OnTheSpoolerPath) {
  EXPECT_EQ(2, GetLocalAccessLevel(Store()));
  EXPECT_EQ(2, GetNetworkAccessLevel(Store()));
}

TEST_F(AccessLevels, DefaultIs1OnThe16BitPath) {
  const PathFlags flags(false, false);
  EXPECT_EQ(1, GetLocalAccessLevel(Store()));
  EXPECT_EQ(1, GetNetworkAccessLevel(Store()));
}

TEST_F(AccessLevels, EachHasAValueOfItsOwn) {
  PrinterRegistry store = Store();
  SetLocalAccessLevel(&store, 3);
  SetNetworkAccessLevel(&store, 0);
  EXPECT_EQ(3, store.ReadInt("Settings:Local Access Level", -1));
  EXPECT_EQ(0, store.ReadInt("Settings:Network Access Level", -1));
  EXPECT_EQ(3, GetLocalAccessLevel(store));
  EXPECT_EQ(0, GetNetworkAccessLevel(store));
}

TEST_F(AccessLevels, OnlyTheLocalLevelIsCappedOnThe16BitPath) {
  PrinterRegistry store = Store();
  SetLocalAccessLevel(&store, 3);
  SetNetworkAccessLevel(&store, 3);
  const PathFlags flags(false, false);
  EXPECT_EQ(1, GetLocalAccessLevel(store));
  EXPECT_EQ(3, GetNetworkAccessLevel(store));
}

TEST_F(AccessLevels, UserHasLevel1OnThe16BitPath) {
  const PathFlags flags(false, false);
  EXPECT_EQ(1, GetUserAccessLevel());
}

TEST_F(AccessLevels, ServerAsksForTheLocalLevelWhateverIsShared) {
  PrinterRegistry store = Store();
  SetLocalAccessLevel(&store, 3);
  SetNetworkAccessLevel(&store, 1);
  EXPECT_EQ(3, GetRequiredAccessLevel(store, false));
  EXPECT_EQ(3, GetRequiredAccessLevel(store, true));
}

TEST_F(AccessLevels, ClientAsksForTheNetworkLevelWhileSharingIsInForce) {
  PrinterRegistry store = Store();
  SetLocalAccessLevel(&store, 3);
  SetNetworkAccessLevel(&store, 1);
  store.IsRemote = true;
  EXPECT_EQ(0, GetRequiredAccessLevel(store, false));
  EXPECT_EQ(1, GetRequiredAccessLevel(store, true));
}

}  // namespace
}  // namespace ostvt::test
