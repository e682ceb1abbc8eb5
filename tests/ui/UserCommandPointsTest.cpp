// The command texts in a device mode.
#include "ui/UserCommandPoints.h"

#include <cstring>

#include "core/Buffer.h"
#include "model/PrinterModel.h"
#include "settings/DevMode.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class UserCommandPoints : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    Settings.AllocateDefaults(Model());
  }
  // The record's bytes, from the block's end.
  char* Record() { return reinterpret_cast<char*>(Settings.GetBlock()) + 1516 - 1132; }

  DevMode Settings;
};

TEST_F(UserCommandPoints, TextsLieInSlotsOf256Bytes) {
  for (int32_t point = 0; point < 4; ++point) {
    EXPECT_TRUE(SetCommandText(&Settings, point, OString::FromInt(point + 1, 3)));
    EXPECT_EQ(OString::FromInt(point + 1, 3), GetCommandText(Settings, point));
  }
  EXPECT_STREQ("001", Record());
  EXPECT_STREQ("002", Record() + 256);
  EXPECT_STREQ("003", Record() + 512);
  EXPECT_STREQ("004", Record() + 768);
}

TEST_F(UserCommandPoints, TextsOf255BytesFitAndTheLastOf250) {
  const int32_t expected[] = {255, 255, 255, 250};
  const uint32_t crc = 0x12345678;
  memcpy(Record() + 1020, &crc, 4);
  for (int32_t point = 0; point < 4; ++point) {
    EXPECT_EQ(expected[point], CommandTextLimit(point));
    SetCommandText(&Settings, point, std::string(65536, 'x').c_str());
    EXPECT_EQ(expected[point], GetCommandText(Settings, point).Length()) << point;
  }
  EXPECT_EQ(0, memcmp(Record() + 1020, &crc, 4));
  EXPECT_EQ('x', Record()[768 + 249]);
  EXPECT_EQ(0, Record()[768 + 250]);
  EXPECT_EQ(0, Record()[768 + 251]);
}

TEST_F(UserCommandPoints, PresetNameIsStillNotedWithTheLongestLastText) {
  SetCommandText(&Settings, 3, std::string(300, 'x').c_str());
  Settings.SetPresetName("A");
  EXPECT_NE(0u, Settings.GetPresetNameCrc());
}

TEST_F(UserCommandPoints, SameTextChangesNothing) {
  SetCommandText(&Settings, 0, "CUT");
  memset(Record() + 4, 0xEE, 200);  // nobody's bytes behind the text
  const std::string before(Record(), 256);
  EXPECT_FALSE(SetCommandText(&Settings, 0, "CUT"));
  EXPECT_EQ(before, std::string(Record(), 256));
  EXPECT_TRUE(SetCommandText(&Settings, 0, "CU"));
  EXPECT_EQ(std::string("CU") + std::string(254, '\0'), std::string(Record(), 256));
}

TEST_F(UserCommandPoints, TextWithoutTerminatorEndsWithItsSlot) {
  memset(Record(), 'y', 1020);
  EXPECT_EQ(256, GetCommandText(Settings, 0).Length());
  EXPECT_EQ(252, GetCommandText(Settings, 3).Length());
}

TEST_F(UserCommandPoints, NoPointHasNoText) {
  for (const int32_t point : {-1, 4, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(0, CommandTextLimit(point));
    EXPECT_TRUE(GetCommandText(Settings, point).IsEmpty());
    EXPECT_FALSE(SetCommandText(&Settings, point, "CUT"));
  }
}

TEST_F(UserCommandPoints, DevModeWithoutRecordHasNoText) {
  DevMode empty;
  EXPECT_TRUE(GetCommandText(empty, 0).IsEmpty());
  EXPECT_FALSE(SetCommandText(&empty, 0, "CUT"));
}

TEST_F(UserCommandPoints, LoneSurrogateDoesNotReachTheEnd) {
  const char16_t text[] = {u'A', 0xD800, 0};
  SetCommandText(&Settings, 0, text);
  EXPECT_EQ('A', Record()[0]);
  EXPECT_EQ(0, Record()[1]);
}

TEST(CommandInsertion, EachExpandsToWhatItsNameSays) {
  const char* expected[] = {"\x1B", "\r", "\n", "\t", "\x02", "\x03", "\x0C", nullptr, "\\", "\\x"};
  for (int32_t i = 0; i < kCommandInsertionCount; ++i) {
    Buffer bytes;
    PrinterModel::ExpandCommandText(GetCommandInsertion(i).Text, &bytes);
    EXPECT_EQ(8020 + i, GetCommandInsertion(i).Name);
    const std::string text(reinterpret_cast<const char*>(bytes.Data), bytes.Size);
    EXPECT_EQ(expected[i] ? std::string(expected[i]) : std::string(1, '\0'), text) << i;
  }
}

TEST(CommandTextOfBytes, ExpandsToTheSameBytes) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  bytes += "\r\n\\x41\n\r\r\n";
  Buffer back;
  PrinterModel::ExpandCommandText(
      CommandTextOfBytes(bytes.data(), static_cast<uint32_t>(bytes.size())), &back);
  EXPECT_EQ(bytes, std::string(reinterpret_cast<const char*>(back.Data), back.Size));
}

TEST(CommandTextOfBytes, ReadsWell) {
  const std::string bytes(
      "! 0 200\r\n\x1B"
      "a\\\x80\0Z\r",
      16);
  EXPECT_EQ(OString("! 0 200\r\n\\ea\\\\\\x80\\x00Z\\r"), CommandTextOfBytes(bytes.data(), 16));
  EXPECT_TRUE(CommandTextOfBytes(bytes.data(), 0).IsEmpty());
}

}  // namespace
}  // namespace ostvt::test
