#include <gtest/gtest.h>

#include "model/ModelDataRecord.h"
#include "model/RecordCache.h"
#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

constexpr uint32_t kInvalid = 87;
constexpr uint32_t kTooSmall = 122;

// A device mode with `size` public bytes and `extra` bytes behind them, each byte its own offset.
std::vector<uint8_t> Numbered(size_t size, size_t extra, uint8_t seed) {
  std::vector<uint8_t> block(size + extra);
  for (size_t i = 0; i < block.size(); i++) block[i] = static_cast<uint8_t>(seed + i);
  if (block.size() >= 72) {
    PutWordAt(&block, kAtSpecVersion, 1025);
    PutWordAt(&block, kAtSize, uint32_t(size));
    PutWordAt(&block, kAtExtra, uint32_t(extra));
  }
  return block;
}

bool Convert(const void* input, void* output, int32_t* size, uint32_t mode) {
  platform::SetLastErrorNumber(kPoison);
  return DrvConvertDevMode(u"Test Printer", input, output, size, mode) != 0;
}

TEST(ConvertDevMode, WithoutASizeIsInvalid) {
  GuardedBlock output(1516);
  EXPECT_FALSE(Convert(output.Data(), output.Data(), nullptr, 1));
  EXPECT_EQ(platform::LastErrorNumber(), kInvalid);
}

TEST(ConvertDevMode, WithoutOutputTellsTheSizeOfABlock) {
  for (uint32_t mode : {1u, 2u, 3u, 4u, 99u}) {
    int32_t size = 7;
    EXPECT_FALSE(Convert(nullptr, nullptr, &size, mode)) << mode;
    EXPECT_EQ(size, 1516) << mode;
    EXPECT_EQ(platform::LastErrorNumber(), kTooSmall) << mode;
  }
}

TEST(ConvertDevMode, Mode3IsFalseWithoutAnError) {
  for (uint32_t mode : {0u, 3u, 5u, 6u, 0xFFFFFFFFu}) {
    GuardedBlock input(Numbered(220, 100, 1));
    GuardedBlock output(Numbered(220, 100, 2));
    std::vector<uint8_t> before = output.Copy();
    int32_t size = 320;
    EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, mode)) << mode;
    EXPECT_EQ(platform::LastErrorNumber(), kPoison) << mode;
    EXPECT_EQ(output.Copy(), before) << mode;
    EXPECT_EQ(size, 320) << mode;
  }
}

TEST(ConvertDevMode, WithoutInputIsInvalid) {
  for (uint32_t mode : {1u, 2u}) {
    GuardedBlock output(Numbered(220, 0, 2));
    int32_t size = 220;
    EXPECT_FALSE(Convert(nullptr, output.Data(), &size, mode)) << mode;
    EXPECT_EQ(platform::LastErrorNumber(), kInvalid) << mode;
    EXPECT_EQ(size, 220);
  }
}

TEST(ConvertDevMode, NeedsThePublicSizeOfTheOutputAndTheExtraOfTheInput) {
  GuardedBlock input(Numbered(220, 300, 1));
  GuardedBlock output(Numbered(188, 0, 2));
  std::vector<uint8_t> before = output.Copy();
  int32_t size = 188;
  EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, 1));
  EXPECT_EQ(platform::LastErrorNumber(), kTooSmall);
  EXPECT_EQ(size, 488);
  EXPECT_EQ(output.Copy(), before);
}

TEST(ConvertDevMode, SmallerPublicPartIsCutAndThePrivatePartFollowsIt) {
  std::vector<uint8_t> from = Numbered(220, 300, 1);
  GuardedBlock input(from);
  GuardedBlock output(188 + 300, 0xEE);
  output.PutWord(kAtSpecVersion, 800);
  output.PutWord(kAtSize, 188);
  int32_t size = 488;
  EXPECT_TRUE(Convert(input.Data(), output.Data(), &size, 1));
  EXPECT_EQ(size, 488);
  EXPECT_EQ(platform::LastErrorNumber(), kPoison);
  std::vector<uint8_t> wanted(from.begin(), from.begin() + 188);
  PutWordAt(&wanted, kAtSpecVersion, 800);
  PutWordAt(&wanted, kAtSize, 188);
  wanted.insert(wanted.end(), from.begin() + 220, from.end());
  EXPECT_EQ(output.Copy(), wanted);
}

TEST(ConvertDevMode, LargerPublicPartIsFilledWithZeros) {
  std::vector<uint8_t> from = Numbered(188, 40, 1);
  GuardedBlock input(from);
  GuardedBlock output(300, 0xEE);
  output.PutWord(kAtSpecVersion, 1025);
  output.PutWord(kAtSize, 220);
  int32_t size = 300;
  EXPECT_TRUE(Convert(input.Data(), output.Data(), &size, 1));
  EXPECT_EQ(size, 260);
  std::vector<uint8_t> wanted(from.begin(), from.begin() + 188);
  wanted.resize(220, 0);
  PutWordAt(&wanted, kAtSpecVersion, 1025);
  PutWordAt(&wanted, kAtSize, 220);
  wanted.insert(wanted.end(), from.begin() + 188, from.end());
  wanted.resize(300, 0xEE);  // what is not needed is not touched
  EXPECT_EQ(output.Copy(), wanted);
}

TEST(ConvertDevMode, Mode2MakesTheOlderForm) {
  std::vector<uint8_t> from = Numbered(220, 40, 1);
  GuardedBlock input(from);
  GuardedBlock output(188 + 40, 0xEE);
  int32_t size = 228;
  EXPECT_TRUE(Convert(input.Data(), output.Data(), &size, 2));
  EXPECT_EQ(size, 228);
  EXPECT_EQ(output.Word(kAtSpecVersion), 800);
  EXPECT_EQ(output.Word(kAtSize), 188);
  EXPECT_EQ(output.Word(kAtExtra), 40);
  EXPECT_EQ(std::vector<uint8_t>(output.Data() + 188, output.Data() + 228),
            std::vector<uint8_t>(from.begin() + 220, from.end()));
}

TEST(ConvertDevMode, Mode2WithATooSmallBufferHasAlreadyWritten800And188) {
  GuardedBlock input(Numbered(220, 1296, 1));
  GuardedBlock output(100, 0xEE);
  int32_t size = 100;
  EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, 2));
  EXPECT_EQ(platform::LastErrorNumber(), kTooSmall);
  EXPECT_EQ(size, 188 + 1296);
  std::vector<uint8_t> wanted(100, 0xEE);
  PutWordAt(&wanted, kAtSpecVersion, 800);
  PutWordAt(&wanted, kAtSize, 188);
  EXPECT_EQ(output.Copy(), wanted);
}

TEST(ConvertDevMode, RoomBelowTheHeadIsNotTouched) {
  for (uint32_t mode : {1u, 2u}) {
    for (int32_t room : {71, 70, 1, 0, -1, INT32_MIN}) {
      GuardedBlock input(Numbered(220, 10, 1));
      GuardedBlock output(room > 0 ? size_t(room) : 1, 0xEE);
      int32_t size = room;
      EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, mode)) << mode << " " << room;
      EXPECT_EQ(platform::LastErrorNumber(), kTooSmall);
      EXPECT_EQ(output.Copy(), std::vector<uint8_t>(output.Size, 0xEE));
    }
  }
}

// Nothing but the input's head is there; a call that fails has no use for more.
TEST(ConvertDevMode, LyingHeaderIsNotFollowedByACallThatFails) {
  GuardedBlock input(72, 0);
  input.PutWord(kAtSize, 65535);
  input.PutWord(kAtExtra, 65535);
  for (uint32_t mode : {1u, 2u, 3u}) {
    for (int32_t room : {0, 71, 72, 1516}) {
      GuardedBlock output(room > 0 ? size_t(room) : 1, 0);
      if (room >= 72) output.PutWord(kAtSize, 220);
      int32_t size = room;
      EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, mode)) << mode << " " << room;
      EXPECT_EQ(platform::LastErrorNumber(), mode == 3 ? kPoison : kTooSmall);
    }
  }
  GuardedBlock small(72, 0);  // a public size that is none
  int32_t size = 72;
  EXPECT_FALSE(Convert(input.Data(), small.Data(), &size, 1));
  EXPECT_EQ(platform::LastErrorNumber(), kInvalid);
}

TEST(ConvertDevMode, NeededSizeIsToldBelowTheHeadWhereItIsKnown) {
  GuardedBlock input(Numbered(220, 10, 1));
  GuardedBlock output(71, 0xEE);
  int32_t size = 71;
  EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, 2));
  EXPECT_EQ(size, 198);
  size = 71;
  EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, 1));
  EXPECT_EQ(size, 71);  // the output's own size lies beyond
}

TEST(ConvertDevMode, PublicSizeBelowTheHeadIsInvalid) {
  for (uint32_t stated : {0u, 1u, 71u}) {
    GuardedBlock good(Numbered(220, 10, 1));
    GuardedBlock bad(72, 0);
    bad.PutWord(kAtSize, stated);
    int32_t size = 72;
    EXPECT_FALSE(Convert(bad.Data(), good.Data(), &size, 1)) << stated;
    EXPECT_EQ(platform::LastErrorNumber(), kInvalid);
    EXPECT_FALSE(Convert(good.Data(), bad.Data(), &size, 1)) << stated;
    EXPECT_EQ(platform::LastErrorNumber(), kInvalid);
    EXPECT_EQ(bad.Word(kAtSize), stated);
  }
}

TEST(ConvertDevMode, LargestSizesDoNotOverflow) {
  GuardedBlock input(Numbered(65535, 65535, 1));
  GuardedBlock output(72, 0);
  output.PutWord(kAtSize, 65535);
  int32_t size = 72;
  EXPECT_FALSE(Convert(input.Data(), output.Data(), &size, 1));
  EXPECT_EQ(size, 131070);
  GuardedBlock whole(131070, 0);
  whole.PutWord(kAtSize, 65535);
  EXPECT_TRUE(Convert(input.Data(), whole.Data(), &size, 1));
  EXPECT_EQ(whole.Word(kAtExtra), 65535);
}

TEST(ConvertDevMode, OneBlockAsInputAndOutputConvertsInPlace) {
  std::vector<uint8_t> from = Numbered(220, 40, 1);
  GuardedBlock block(from);
  int32_t size = 260;
  EXPECT_TRUE(Convert(block.Data(), block.Data(), &size, 2));
  EXPECT_EQ(size, 228);
  EXPECT_EQ(block.Word(kAtSize), 188);
  EXPECT_EQ(std::vector<uint8_t>(block.Data() + 188, block.Data() + 228),
            std::vector<uint8_t>(from.begin() + 220, from.end()));
}

TEST(ConvertDevMode, OverlappingBlocksConvertAsIfApart) {
  for (ptrdiff_t shift : {-30, -8, 8, 30}) {
    GuardedBlock memory(600, 0);
    uint8_t* input = memory.Data() + 100;
    uint8_t* output = input + shift;
    std::vector<uint8_t> from = Numbered(220, 40, 1);
    memcpy(input, from.data(), from.size());
    // The output's own head lies somewhere in the input.
    const uint8_t head[] = {0x20, 0x03, 0, 0, 188, 0};
    memcpy(output + kAtSpecVersion, head, sizeof head);
    from.assign(input, input + from.size());
    uint16_t inputSize = WordAt(from, kAtSize);
    uint16_t inputExtra = WordAt(from, kAtExtra);
    ASSERT_GE(inputSize, 188) << shift;
    ASSERT_EQ(inputExtra, 40) << shift;
    int32_t size = 400;
    EXPECT_TRUE(Convert(input, output, &size, 1)) << shift;
    EXPECT_EQ(size, 228);
    std::vector<uint8_t> wanted(from.begin(), from.begin() + 188);
    PutWordAt(&wanted, kAtSpecVersion, 800);
    PutWordAt(&wanted, kAtSize, 188);
    wanted.insert(wanted.end(), from.begin() + inputSize, from.begin() + inputSize + 40);
    EXPECT_EQ(std::vector<uint8_t>(output, output + 228), wanted) << shift;
  }
}

class StoredDriverDefault : public EntryTest {};

TEST_F(StoredDriverDefault, RoomBelowABlockGivesTheSize) {
  AddPrinter();
  for (int32_t room : {1515, 72, 0, -5}) {
    GuardedBlock output(1516);
    int32_t size = room;
    platform::SetLastErrorNumber(kPoison);
    EXPECT_FALSE(DrvConvertDevMode(Name(), nullptr, output.Data(), &size, 4));
    EXPECT_EQ(size, 1516);
    EXPECT_EQ(platform::LastErrorNumber(), kTooSmall);
    EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
  }
}

TEST_F(StoredDriverDefault, FirstCallStoresTheBlock) {
  AddPrinter();
  Store().Delete("DATA:Initial DevMode", false);
  GuardedBlock output(1516);
  int32_t size = 5000;
  EXPECT_TRUE(DrvConvertDevMode(Name(), nullptr, output.Data(), &size, 4));
  EXPECT_EQ(size, 1516);
  std::vector<uint8_t> stored(1516);
  EXPECT_EQ(Store().ReadBinary("DATA:Initial DevMode", stored.data(), 1516), 1516);
  EXPECT_EQ(stored, output.Copy());
  // Whole: head and trailer are this driver's, with the model's own numbers.
  EXPECT_EQ(output.Word(kAtSpecVersion), 1025);
  EXPECT_EQ(output.Word(kAtDriverVersion), 0x0607);
  EXPECT_EQ(output.Word(kAtSize), 220);
  EXPECT_EQ(output.Word(kAtExtra), 1296);
  EXPECT_EQ(output.Word(90), 203);
  EXPECT_EQ(memcmp(output.Data() + 1508, "vtsost", 6), 0);
  EXPECT_EQ(output.Word(1514), 1132);
}

TEST_F(StoredDriverDefault, SecondCallBuildsNoModel) {
  AddPrinter();
  const auto hasModelRecord = [this] {
    ModelData record;
    return TheRecordCache()->Get(Printer->Name() + ":ModelData", &record, sizeof record);
  };
  std::vector<uint8_t> marked = DriverDefault();
  EXPECT_TRUE(hasModelRecord());
  CloseCaches();
  OpenCaches();
  // No model would make such a block, or let it pass.
  marked[400] ^= 0x5A;
  PutWordAt(&marked, kAtCopies, 0x7777);
  ASSERT_EQ(Store().WriteBinary("DATA:Initial DevMode", marked.data(), 1516), 1516);
  EXPECT_EQ(DriverDefault(), marked);
  EXPECT_FALSE(hasModelRecord());
}

TEST_F(StoredDriverDefault, StoredBlockOfAnotherSizeCountsAsAbsent) {
  AddPrinter();
  std::vector<uint8_t> good = DriverDefault();
  std::vector<std::vector<uint8_t>> bad = {{}, good, good, good, good};
  bad[1].pop_back();
  bad[2].push_back(0);
  PutWordAt(&bad[3], kAtSize, 221);
  PutWordAt(&bad[4], kAtExtra, 1295);
  for (const std::vector<uint8_t>& block : bad) {
    Store().WriteBinary("DATA:Initial DevMode", block.data(), int32_t(block.size()));
    EXPECT_EQ(DriverDefault(), good);
    EXPECT_EQ(Store().GetValueSize("DATA:Initial DevMode"), 1516);
  }
}

TEST_F(StoredDriverDefault, UnknownPrinterIsFalseAndLeavesTheOutput) {
  for (const char16_t* name : {static_cast<const char16_t*>(nullptr), u"", u"No Such Printer"}) {
    GuardedBlock output(1516);
    int32_t size = 1516;
    EXPECT_FALSE(DrvConvertDevMode(name, nullptr, output.Data(), &size, 4));
    EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
  }
}

#ifndef _WIN32  // the spooler there wants a data file
TEST_F(StoredDriverDefault, DriverWithoutDataFileHasNoModel) {
  TestPrinterOptions options;
  options.DataFile = u"";
  Printer = std::make_unique<TestPrinter>(options);
  ASSERT_TRUE(Printer->IsReady());
  GuardedBlock output(1516);
  int32_t size = 1516;
  EXPECT_FALSE(DrvConvertDevMode(Name(), nullptr, output.Data(), &size, 4));
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
}
#endif

}  // namespace
}  // namespace ostvt::test
