#include "settings/LaunchKey.h"

#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class LaunchKeyTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter();
  }
  // As the partner writes them: by their place in the registry.
  void Write(const char16_t* name, uint32_t type, const void* data, int size) {
    platform::KeyHandle key = platform::OpenKey(platform::Hive::kLocalMachine,
                                                u"SOFTWARE\\Vantrel\\Drivers\\X16\\Chan 7", true);
    ASSERT_NE(nullptr, key);
    EXPECT_EQ(size, platform::WriteValue(key, name, data, size, type));
    platform::CloseKey(key);
  }
  void WriteByte(const char16_t* name, uint8_t value) {
    Write(name, platform::kValueBinary, &value, 1);
  }
  std::vector<uint8_t> NarrowBlock(int32_t copies) {
    DevMode devMode;
    devMode.AllocateDefaults(Model());
    devMode.SetCopies(copies);
    uint8_t narrow[kNarrowDevModeSize];
    devMode.WriteNarrow(Printer->Name(), narrow);
    return {narrow, narrow + kNarrowDevModeSize};
  }

  LaunchKey Key = LaunchKey("Chan 7");
};

TEST_F(LaunchKeyTest, AbsentValuesAreOff) {
  DevMode devMode;
  EXPECT_TRUE(Key.GetPrinterName().IsEmpty());
  EXPECT_FALSE(Key.EditsDefaults());
  EXPECT_FALSE(Key.HidesAdvancedPages());
  EXPECT_FALSE(Key.JoinsProperties());
  EXPECT_FALSE(Key.ReadDevMode(Model(), &devMode));
  EXPECT_TRUE(devMode.IsEmpty());
}

TEST_F(LaunchKeyTest, EachByteHasItsMeaning) {
  WriteByte(u"Default DevMode", 1);
  EXPECT_TRUE(Key.EditsDefaults());
  EXPECT_FALSE(Key.HidesAdvancedPages());
  WriteByte(u"Advanced Setup", 0xFF);
  EXPECT_TRUE(Key.HidesAdvancedPages());
  EXPECT_FALSE(Key.JoinsProperties());
  WriteByte(u"Properties", 2);
  EXPECT_TRUE(Key.JoinsProperties());
  WriteByte(u"Properties", 0);
  EXPECT_FALSE(Key.JoinsProperties());
}

TEST_F(LaunchKeyTest, PrinterIsAText) {
  const std::u16string name = u"Lab Ж";
  Write(u"Printer", platform::kValueString, name.c_str(), 2 * 6);
  EXPECT_TRUE(Key.GetPrinterName() == OString(name.c_str()));
}

TEST_F(LaunchKeyTest, NarrowDevModeStandsOverTheDefaults) {
  const std::vector<uint8_t> narrow = NarrowBlock(31);
  Write(u"DevMode 16", platform::kValueBinary, narrow.data(), static_cast<int>(narrow.size()));
  DevMode devMode;
  ASSERT_TRUE(Key.ReadDevMode(Model(), &devMode));
  EXPECT_EQ(1516u, devMode.GetSize());
  EXPECT_EQ(31, devMode.GetCopies());
}

TEST_F(LaunchKeyTest, CutDevModeGivesWhatIsThere) {
  const std::vector<uint8_t> narrow = NarrowBlock(31);
  DevMode defaults;
  defaults.AllocateDefaults(Model());
  for (const int size : {1, 20, 36, 40, 147}) {
    Write(u"DevMode 16", platform::kValueBinary, narrow.data(), size);
    DevMode devMode;
    ASSERT_TRUE(Key.ReadDevMode(Model(), &devMode)) << size;
    EXPECT_EQ(1516u, devMode.GetSize());
    EXPECT_EQ(size == 147 ? 31 : defaults.GetCopies(), devMode.GetCopies()) << size;
  }
}

TEST_F(LaunchKeyTest, EmptyDevModeIsNone) {
  Write(u"DevMode 16", platform::kValueBinary, "", 0);
  DevMode devMode;
  EXPECT_FALSE(Key.ReadDevMode(Model(), &devMode));
}

TEST_F(LaunchKeyTest, MoreThanADevModeCanStateIsNone) {
  std::vector<uint8_t> block(2 * 0xFFFF + 1);
  Write(u"DevMode 16", platform::kValueBinary, block.data(), static_cast<int>(block.size()));
  DevMode devMode;
  EXPECT_FALSE(Key.ReadDevMode(Model(), &devMode));
}

TEST_F(LaunchKeyTest, NameOfTheChannelIsOneElement) {
  DevMode devMode;
  devMode.AllocateDefaults(Model());
  LaunchKey("a/b:c%41").WriteDevMode(devMode);
  platform::KeyHandle key = platform::OpenKey(platform::Hive::kLocalMachine,
                                              u"SOFTWARE\\Vantrel\\Drivers\\X16\\a/b:c%41", false);
  ASSERT_NE(nullptr, key);
  int size = 0;
  EXPECT_TRUE(platform::GetValueSize(key, u"DevMode 32", &size));
  EXPECT_EQ(1516, size);
  platform::CloseKey(key);
}

}  // namespace
}  // namespace ostvt::test
