#include "family/StatusDecoder.h"

#include <memory>

#include "family/OstrelModel.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

// The status of an answer, in an allocation of exactly its size.
uint32_t Status(const std::vector<uint8_t>& answer) {
  const TestBlock block(answer);
  StatusResult result = {false, 99};
  EXPECT_EQ(
      static_cast<int32_t>(answer.size()),
      kStatusInterface.ParseStatus(block.Data(), static_cast<int32_t>(answer.size()), &result));
  EXPECT_TRUE(result.valid);
  return result.status;
}

TEST(StatusDecoder, EachBitHasItsStatus) {
  EXPECT_EQ(1u, Status({0, 0}));
  EXPECT_EQ(3u, Status({1, 0}));
  EXPECT_EQ(8u, Status({0, 0x20}));
  EXPECT_EQ(10u, Status({8, 0}));
  EXPECT_EQ(131072u, Status({0, 0x40}));
  EXPECT_EQ(65537u, Status({2, 0}));
  EXPECT_EQ(65538u, Status({0, 0x80}));
  EXPECT_EQ(65554u, Status({4, 0}));
}

TEST(StatusDecoder, OtherBitsMeanNothing) {
  EXPECT_EQ(1u, Status({0xF0, 0x1F}));
  EXPECT_EQ(1u, Status({0, 0, 0xFF, 0xFF}));
}

// Each row against the one in front of it.
TEST(StatusDecoder, LaterTestsWin) {
  EXPECT_EQ(8u, Status({1, 0x20}));
  EXPECT_EQ(10u, Status({8, 0x20}));
  EXPECT_EQ(131072u, Status({8, 0x40}));
  EXPECT_EQ(65537u, Status({2, 0x40}));
  EXPECT_EQ(65538u, Status({2, 0x80}));
}

TEST(StatusDecoder, BitTwoOfTheFirstByteWinsOverAllOthers) {
  for (int first = 0; first < 256; ++first) {
    for (int second : {0, 0x20, 0x40, 0x80, 0xFF})
      EXPECT_EQ(65554u, Status({static_cast<uint8_t>(first | 4), static_cast<uint8_t>(second)}));
  }
}

TEST(StatusDecoder, OneByteNeverReachesTheTestsOnTheSecond) {
  EXPECT_EQ(1u, Status({0}));
  EXPECT_EQ(1u, Status({0xF0}));
  EXPECT_EQ(65537u, Status({0xFB}));
}

TEST(StatusDecoder, AnswerOfNoBytesIsNotValid) {
  const uint8_t byte = 4;
  for (int32_t count : {0, -1}) {
    StatusResult result = {true, 99};
    EXPECT_EQ(0, kStatusInterface.ParseStatus(&byte, count, &result));
    EXPECT_FALSE(result.valid);
  }
  StatusResult result = {true, 99};
  EXPECT_EQ(0, kStatusInterface.ParseStatus(nullptr, 2, &result));
  EXPECT_FALSE(result.valid);
}

TEST(StatusAnswer, WithoutARecordNothingIsWritten) {
  const uint8_t bytes[2] = {1, 0};
  EXPECT_EQ(2, kStatusInterface.ParseStatus(bytes, 2, nullptr));
  EXPECT_EQ(0, kStatusInterface.ParseStatus(bytes, 0, nullptr));
  EXPECT_EQ(0, kStatusInterface.ParseStatus(nullptr, 2, nullptr));
  kStatusInterface.GetStatusInterval(nullptr, nullptr);
}

TEST(StatusRequest, IsFourBytesAndAZeroOnlyWithRoomForIt) {
  for (int32_t size = 0; size <= 6; ++size) {
    TestBlock block(static_cast<uint32_t>(size));
    for (int32_t i = 0; i < size; ++i) block.Put(static_cast<uint32_t>(i), 1, 0xCD);
    EXPECT_EQ(4, kStatusInterface.GetStatusRequest(block.Data(), size)) << size;
    std::vector<uint8_t> expected(static_cast<size_t>(size), 0xCD);
    if (size >= 4) std::copy_n("\x1Bh\x1Bi", 4, expected.begin());
    if (size >= 5) expected[4] = 0;
    EXPECT_EQ(expected, block.Copy()) << size;
  }
  EXPECT_EQ(4, kStatusInterface.GetStatusRequest(nullptr, 4));
}

class StatusContext : public SettingsTest {};

TEST_F(StatusContext, IntervalIsTheModelsPortsAndNotValid) {
  ModelText text;
  text.Features = "Status.Ports=Serial,USB\n";
  AddPrinter(text);
  void* context = kStatusInterface.OpenStatus(Printer->Name().GetWide());
  ASSERT_NE(nullptr, context);
  StatusResult result = {true, 99};
  kStatusInterface.GetStatusInterval(context, &result);
  EXPECT_FALSE(result.valid);
  EXPECT_EQ(5u, result.status);  // serial and USB
  kStatusInterface.CloseStatus(context);
}

TEST_F(StatusContext, PrinterWithoutAModelHasNone) {
  EXPECT_EQ(nullptr, kStatusInterface.OpenStatus(u"No Such Printer"));
  EXPECT_EQ(nullptr, kStatusInterface.OpenStatus(nullptr));
  StatusResult result = {true, 99};
  kStatusInterface.GetStatusInterval(nullptr, &result);
  EXPECT_FALSE(result.valid);
  EXPECT_EQ(0u, result.status);
  kStatusInterface.CloseStatus(nullptr);
}

}  // namespace
}  // namespace ostvt::test
