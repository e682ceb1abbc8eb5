#include "settings/DevMode.h"
#include "settings/PaperResolver.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

constexpr uint32_t kSize = 68;
constexpr uint32_t kExtra = 70;
constexpr uint32_t kFields = 72;
constexpr uint32_t kHalftone = 220;
constexpr uint32_t kRecord = 384;

// Leaves the paper as it is, and notes the dmFields and resolution that validation starts from.
class FieldsProbe : public PaperResolver {
 public:
  bool ResolvePaper(const DevMode& devMode, PaperForm*) override {
    Fields = devMode.Get(&PublicDevMode::dmFields);
    Quality = devMode.Get(&PublicDevMode::dmPrintQuality);
    YResolution = devMode.Get(&PublicDevMode::dmYResolution);
    Collate = devMode.Get(&PublicDevMode::dmCollate);
    Scale = devMode.Get(&PublicDevMode::dmScale);
    Duplex = devMode.Get(&PublicDevMode::dmDuplex);
    return false;
  }
  uint32_t Fields = 0;
  int Quality = 0;
  int YResolution = 0;
  int Collate = 0;
  int Scale = 0;
  int Duplex = 0;
};

class DevModeMerge : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter(ColorModelText());
    DevMode(Target.Data(), 1516).SetDefaults(Model());
    DevMode(Source.Data(), 1516).SetDefaults(Model());
    Source.Put(kFields, 4, 0);
  }
  void Merge(const TestBlock& source) {
    DevMode(Target.Data(), 1516).Merge(DevMode(source.Data(), source.Size), Model(), &Probe);
  }
  void Merge() { Merge(Source); }
  // The source as a block of its own whose public part ends at `size` and that ends there.
  TestBlock PublicSource(uint32_t size) {
    TestBlock block(std::vector<uint8_t>(Source.Data(), Source.Data() + size));
    block.Put(kSize, 2, size);
    block.Put(kExtra, 2, 0);
    return block;
  }
  void NameSourceForAnotherPrinter() { Source.PutWide(0, u"Other Printer"); }

  TestBlock Target{1516};
  TestBlock Source{1516};
  FieldsProbe Probe;
};

TEST_F(DevModeMerge, OrientationIsTakenWhenDeclared) {
  Source.Put(76, 2, 2);
  Merge();
  EXPECT_EQ(1u, Target.Get(76, 2));
  Target.Put(kFields, 4, 0);
  Source.Put(kFields, 4, 0x1);
  Merge();
  EXPECT_EQ(2u, Target.Get(76, 2));
  EXPECT_EQ(0x1u, Probe.Fields);
}

TEST_F(DevModeMerge, PaperLengthIsTakenEvenWithoutItsBit) {
  Source.Put(80, 2, 777);
  Source.Put(82, 2, 333);
  Merge();
  EXPECT_EQ(777u, Target.Get(80, 2));
  EXPECT_EQ(333u, Target.Get(82, 2));
}

TEST_F(DevModeMerge, PaperSize0Becomes256WithTheFormName) {
  Target.Put(kFields, 4, 0);
  Target.Put(78, 2, 300);
  Source.Put(kFields, 4, 0x2);
  Source.Put(78, 2, 0);
  Source.PutWide(102, u"Mine");
  Merge();
  EXPECT_EQ(256u, Target.Get(78, 2));
  EXPECT_EQ(uint32_t{'M'}, Target.Get(102, 2));
  EXPECT_EQ(0x1000Eu, Probe.Fields);
}

TEST_F(DevModeMerge, PaperSize256TakesTheFormNameWithoutItsBit) {
  Target.Put(kFields, 4, 0);
  Source.Put(kFields, 4, 0x2);
  Source.Put(78, 2, 256);
  Source.PutWide(102, u"Mine");
  Merge();
  EXPECT_EQ(uint32_t{'M'}, Target.Get(102, 2));
  EXPECT_EQ(0x1000Eu, Probe.Fields);
}

TEST_F(DevModeMerge, PaperWithAFormNameDeclaresBothAndNoSizes) {
  Target.Put(kFields, 4, 0xC);
  Source.Put(kFields, 4, 0x10002);
  Source.Put(78, 2, 300);
  Source.PutWide(102, u"Shelf");
  Merge();
  EXPECT_EQ(300u, Target.Get(78, 2));
  EXPECT_EQ(uint32_t{'S'}, Target.Get(102, 2));
  EXPECT_EQ(0x10002u, Probe.Fields);
}

TEST_F(DevModeMerge, PaperWithoutAFormNameDeclaresItselfOnly) {
  Target.Put(kFields, 4, 0x1000C);
  Target.PutWide(102, u"Old");
  Source.Put(kFields, 4, 0x2);
  Source.Put(78, 2, 300);
  Source.PutWide(102, u"Shelf");
  Merge();
  EXPECT_EQ(300u, Target.Get(78, 2));
  EXPECT_EQ(uint32_t{'O'}, Target.Get(102, 2));
  EXPECT_EQ(0x2u, Probe.Fields);
}

TEST_F(DevModeMerge, FormNameAloneReplacesThePaper) {
  Target.Put(kFields, 4, 0xE);
  Source.Put(kFields, 4, 0x10000);
  Source.Put(78, 2, 300);
  Source.PutWide(102, u"Shelf");
  Merge();
  EXPECT_EQ(256u, Target.Get(78, 2));
  EXPECT_EQ(uint32_t{'S'}, Target.Get(102, 2));
  EXPECT_EQ(0x10000u, Probe.Fields);
}

TEST_F(DevModeMerge, FormNameNeeds103PublicBytes) {
  Target.Put(kFields, 4, 0xE);
  Source.Put(kFields, 4, 0x10000);
  Source.PutWide(102, u"Shelf");
  Merge(PublicSource(102));
  EXPECT_EQ(0xEu, Probe.Fields);
  EXPECT_EQ(0u, Target.Get(102, 2));
  Merge(PublicSource(103));
  EXPECT_EQ(0x10000u, Probe.Fields);
}

TEST_F(DevModeMerge, FormNameNeeds103PublicBytesOfTheTargetToo) {
  Source.Put(kFields, 4, 0x10000);
  Source.PutWide(102, u"Shelf");
  for (const uint32_t size : {102u, 103u}) {
    TestBlock target(std::vector<uint8_t>(Target.Data(), Target.Data() + size));
    target.Put(kSize, 2, size);
    target.Put(kExtra, 2, 0);
    target.Put(kFields, 4, 0xE);
    DevMode(target.Data(), size).Merge(DevMode(Source.Data(), 1516), Model(), &Probe);
    EXPECT_EQ(size == 102 ? 0xEu : 0x10000u, Probe.Fields) << size;
  }
}

TEST_F(DevModeMerge, PartOfAFormNameIsTakenAndTheRestIsZero) {
  Source.Put(kFields, 4, 0x10000);
  Source.PutWide(102, u"Shelf");
  Target.PutWide(102, u"A longer name");
  Merge(PublicSource(106));
  TestBlock name(64);
  name.PutWide(0, u"Sh");
  EXPECT_EQ("", Difference(name.Data(), Target.Data() + 102, 64));
}

TEST_F(DevModeMerge, RubbishBehindAFormNameIsDropped) {
  Source.Put(kFields, 4, 0x10000);
  for (uint32_t i = 102; i < 166; ++i) Source.Put(i, 1, 0xEE);
  Source.PutWide(102, u"Shelf");
  Source.Put(112, 2, 0);
  Merge();
  TestBlock name(64);
  name.PutWide(0, u"Shelf");
  EXPECT_EQ("", Difference(name.Data(), Target.Data() + 102, 64));
}

TEST_F(DevModeMerge, FormNameMayFillItsField) {
  Source.Put(kFields, 4, 0x10000);
  for (uint32_t i = 102; i < 166; i += 2) Source.Put(i, 2, 'x');
  Merge();
  EXPECT_EQ(uint32_t{'x'}, Target.Get(164, 2));
  EXPECT_EQ(0u, Target.Get(166, 2));
}

TEST_F(DevModeMerge, CopiesScaleAndSourceAreTakenWhenDeclared) {
  Source.Put(84, 2, 50);
  Source.Put(86, 2, 7);
  Source.Put(88, 2, 15);
  Merge();
  EXPECT_EQ(1u, Target.Get(86, 2));
  EXPECT_EQ(256u, Target.Get(88, 2));
  EXPECT_EQ(100, Probe.Scale);
  Target.Put(kFields, 4, 0);
  Source.Put(kFields, 4, 0x310);
  Merge();
  EXPECT_EQ(7u, Target.Get(86, 2));
  EXPECT_EQ(15u, Target.Get(88, 2));
  EXPECT_EQ(50, Probe.Scale);
  EXPECT_EQ(0u, Probe.Fields);  // no bit is set by these
}

TEST_F(DevModeMerge, BlockNamedForAnotherPrinterKeepsQuality0UntilValidation) {
  NameSourceForAnotherPrinter();
  Target.Put(kFields, 4, 0);
  Source.Put(kFields, 4, 0x2400);
  Source.Put(90, 2, 300);
  Source.Put(96, 2, 150);
  Merge();
  EXPECT_EQ(0, Probe.Quality);
  EXPECT_EQ(0, Probe.YResolution);
  EXPECT_EQ(0x2400u, Probe.Fields);
  EXPECT_EQ(203u, Target.Get(90, 2));
  EXPECT_EQ(203u, Target.Get(96, 2));
}

TEST_F(DevModeMerge, ResolutionOfTheSamePrinterIsTaken) {
  Source.Put(kFields, 4, 0x2400);
  Source.Put(90, 2, 300);
  Source.Put(96, 2, 150);
  Merge();
  EXPECT_EQ(300u, Target.Get(90, 2));
  EXPECT_EQ(150u, Target.Get(96, 2));
}

TEST_F(DevModeMerge, QualityWordsBelowZeroAreNoResolution) {
  Source.Put(kFields, 4, 0x400);
  Source.Put(90, 2, 0xFFFC);
  Merge();
  EXPECT_EQ(0, Probe.Quality);
  EXPECT_EQ(203, Probe.YResolution);
}

TEST_F(DevModeMerge, RubbishBehindTheDeviceNameDoesntMatter) {
  Source.Put(60, 2, 0xABCD);
  Source.Put(kFields, 4, 0x2400);
  Source.Put(90, 2, 300);
  Source.Put(96, 2, 150);
  Merge();
  EXPECT_EQ(300u, Target.Get(90, 2));
}

TEST_F(DevModeMerge, ColorIsDeclaredAnywayButTakenFromTheSamePrinterOnly) {
  Target.Put(kFields, 4, 0);
  Source.Put(kFields, 4, 0x800);
  Source.Put(92, 2, 1);
  Merge();
  EXPECT_EQ(1u, Target.Get(92, 2));
  EXPECT_EQ(0x800u, Probe.Fields);
  Target.Put(92, 2, 2);
  Target.Put(kFields, 4, 0);
  NameSourceForAnotherPrinter();
  Merge();
  EXPECT_EQ(2u, Target.Get(92, 2));
  EXPECT_EQ(0x800u, Probe.Fields);
}

TEST_F(DevModeMerge, DuplexIsTakenWhenDeclared) {
  Source.Put(94, 2, 3);
  Merge();
  EXPECT_EQ(1, Probe.Duplex);
  Source.Put(kFields, 4, 0x1000);
  Merge();
  EXPECT_EQ(3, Probe.Duplex);
}

TEST_F(DevModeMerge, CollateNeeds101PublicBytes) {
  Source.Put(kFields, 4, 0x8000);
  Source.Put(100, 2, 1);
  Merge(PublicSource(100));
  EXPECT_EQ(0, Probe.Collate);
  Merge(PublicSource(101));
  EXPECT_EQ(1, Probe.Collate);
  Merge();
  EXPECT_EQ(1, Probe.Collate);
}

TEST_F(DevModeMerge, IcmFieldsNeedTheirBytes) {
  Source.Put(kFields, 4, 0x1800000);
  Source.Put(188, 4, 3);
  Source.Put(192, 4, 4);
  Merge(PublicSource(188));
  EXPECT_EQ(2u, Target.Get(188, 4));
  Merge(PublicSource(189));
  EXPECT_EQ(3u, Target.Get(188, 4));
  Source.Put(188, 4, 2);
  Merge(PublicSource(192));
  EXPECT_EQ(2u, Target.Get(188, 4));
  EXPECT_EQ(1u, Target.Get(192, 4));
  Merge(PublicSource(193));
  EXPECT_EQ(4u, Target.Get(192, 4));
}

TEST_F(DevModeMerge, IcmFieldsNeedTheirBytesInTheTargetToo) {
  Source.Put(kFields, 4, 0x1800000);
  Source.Put(188, 4, 3);
  Source.Put(192, 4, 4);
  for (const uint32_t size : {192u, 196u}) {
    TestBlock target(std::vector<uint8_t>(Target.Data(), Target.Data() + size));
    target.Put(kSize, 2, size);
    target.Put(kExtra, 2, 0);
    DevMode(target.Data(), size).Merge(DevMode(Source.Data(), 1516), Model(), &Probe);
    EXPECT_EQ(3u, target.Get(188, 4)) << size;
    if (size == 196) {
      EXPECT_EQ(4u, target.Get(192, 4));
    }
  }
}

TEST_F(DevModeMerge, IcmFieldsAreTakenWhenDeclared) {
  Source.Put(188, 4, 3);
  Source.Put(192, 4, 4);
  Merge();
  EXPECT_EQ(2u, Target.Get(188, 4));
  EXPECT_EQ(1u, Target.Get(192, 4));
}

TEST_F(DevModeMerge, MediaAndDitherTypeAreNeverTaken) {
  Source.Put(kFields, 4, 0x6000000);
  Source.Put(196, 4, 9);
  Source.Put(200, 4, 9);
  Merge();
  EXPECT_EQ(1u, Target.Get(196, 4));
  EXPECT_EQ(256u, Target.Get(200, 4));
}

TEST_F(DevModeMerge, ResultIsValidated) {
  Source.Put(kFields, 4, 0x111);
  Source.Put(76, 2, 5);
  Source.Put(86, 2, 5000);
  Merge();
  EXPECT_EQ(1u, Target.Get(76, 2));
  EXPECT_EQ(999u, Target.Get(86, 2));
  EXPECT_EQ(100u, Target.Get(84, 2));
}

TEST_F(DevModeMerge, HalftoneIsTakenWithoutItsHead) {
  for (uint32_t i = 8; i < 164; ++i) Source.Put(kHalftone + i, 1, i);
  Merge();
  EXPECT_EQ("", Difference(Source.Data() + kHalftone + 8, Target.Data() + kHalftone + 8, 156));
  EXPECT_EQ(164u, Target.Get(kHalftone, 2));
}

TEST_F(DevModeMerge, ShorterHalftoneIsTakenInPartAndNeverShrinksTheTarget) {
  Source.Put(kHalftone, 2, 12);
  Source.Put(kHalftone + 8, 4, 77);
  Source.Put(kHalftone + 12, 4, 88);
  Merge();
  EXPECT_EQ(164u, Target.Get(kHalftone, 2));
  EXPECT_EQ(77u, Target.Get(kHalftone + 8, 4));
  EXPECT_EQ(5u, Target.Get(kHalftone + 12, 4));
}

TEST_F(DevModeMerge, ShorterHalftoneOfTheTargetIsFilledNoFurther) {
  Target.Put(kHalftone, 2, 12);
  Source.Put(kHalftone + 8, 4, 77);
  Source.Put(kHalftone + 12, 4, 88);
  Merge();
  EXPECT_EQ(12u, Target.Get(kHalftone, 2));
  EXPECT_EQ(77u, Target.Get(kHalftone + 8, 4));
  EXPECT_EQ(5u, Target.Get(kHalftone + 12, 4));
}

TEST_F(DevModeMerge, LyingHalftoneSizesNeverReachTheRecord) {
  Source.Put(kHalftone, 2, 0xFFFF);
  Target.Put(kHalftone, 2, 0xFFFF);
  Source.PutText(kRecord, "source");
  Source.Put(1513, 1, 'x');  // so that no private data is taken
  Merge();
  EXPECT_EQ(0u, Target.Get(kRecord, 1));
}

// A block as an older caller may have it: eight bytes of halftone, then the record.
TEST_F(DevModeMerge, HalftoneEndsWhereARecordBegins) {
  TestBlock target(220 + 8 + kModelRecordSize);
  std::copy(Target.Data(), Target.Data() + 228, target.Data());
  std::copy(Target.Data() + kRecord, Target.Data() + 1516, target.Data() + 228);
  target.Put(kExtra, 2, 8 + kModelRecordSize);
  const std::vector<uint8_t> record(target.Data() + 228, target.Data() + target.Size);
  for (uint32_t i = kHalftone + 8; i < kHalftone + 164; ++i) Source.Put(i, 1, 0xEE);
  Source.Put(1513, 1, 'x');  // so that no private data is taken
  DevMode(target.Data(), target.Size).Merge(DevMode(Source.Data(), 1516), Model(), &Probe);
  // Validation brings the record into range, which the default one is already.
  EXPECT_EQ(record, std::vector<uint8_t>(target.Data() + 228, target.Data() + target.Size));
}

TEST_F(DevModeMerge, HalftoneNeedsItsSignatureAndVersion) {
  Source.Put(kHalftone + 8, 4, 77);
  Source.Put(kHalftone + 4, 1, 'X');
  Merge();
  EXPECT_EQ(2u, Target.Get(kHalftone + 8, 4));
  Source.Put(kHalftone + 4, 1, 'M');
  Source.Put(kHalftone + 2, 2, 2);
  Merge();
  EXPECT_EQ(2u, Target.Get(kHalftone + 8, 4));
}

TEST_F(DevModeMerge, PrivateDataIsTakenAndThenBroughtIntoRange) {
  Source.Put(kRecord + 1112, 4, 3);
  Source.Put(kRecord + 1080, 4, 999999);
  Source.Put(kRecord + 1054, 2, 500);
  Merge();
  EXPECT_EQ(3u, Target.Get(kRecord + 1112, 4));
  EXPECT_EQ(254000u, Target.Get(kRecord + 1080, 4));
  EXPECT_EQ(18u, Target.Get(kRecord + 1054, 2));
}

TEST_F(DevModeMerge, PrivateDataIsTakenAcrossPrinterNames) {
  NameSourceForAnotherPrinter();
  Source.Put(kRecord + 1112, 4, 3);
  Merge();
  EXPECT_EQ(3u, Target.Get(kRecord + 1112, 4));
}

TEST_F(DevModeMerge, BlockOfAnotherModelLosesOnlyItsRecord) {
  Source.Put(1513, 1, 'x');
  Source.Put(kFields, 4, 0x100);
  Source.Put(86, 2, 7);
  Source.Put(kRecord + 1112, 4, 3);
  Merge();
  EXPECT_EQ(7u, Target.Get(86, 2));
  EXPECT_EQ(5u, Target.Get(kRecord + 1112, 4));
}

// Room for a trailer and no more.
TEST_F(DevModeMerge, DriverExtraOf8CopiesNoPrivateData) {
  Source.Put(kRecord + 1112, 4, 3);
  TestBlock narrowed(Source.Copy());
  narrowed.Put(kSize, 2, 1508);
  narrowed.Put(kExtra, 2, 8);
  narrowed.Put(1514, 2, 8);
  Merge(narrowed);
  EXPECT_EQ(5u, Target.Get(kRecord + 1112, 4));
}

TEST_F(DevModeMerge, TrailerOfAnOldSizeStillCopies) {
  Source.Put(1514, 2, 108);
  Source.Put(kRecord + 1112, 4, 3);
  Merge();
  EXPECT_EQ(3u, Target.Get(kRecord + 1112, 4));
}

TEST_F(DevModeMerge, EmptySourceDeclaresNothingButTheTargetIsValidated) {
  Target.Put(84, 2, 50);
  Target.Put(80, 2, 777);
  DevMode(Target.Data(), 1516).Merge(DevMode(), Model());
  EXPECT_EQ(100u, Target.Get(84, 2));
  EXPECT_EQ(777u, Target.Get(80, 2));
}

TEST_F(DevModeMerge, SourceWithoutAFieldLeavesTheTargets) {
  Source.Put(kFields, 4, 0xFFFFFFFF);
  Source.Put(76, 2, 2);
  Merge(PublicSource(78));
  EXPECT_EQ(2u, Target.Get(76, 2));
  EXPECT_EQ(256u, Target.Get(78, 2));
  EXPECT_EQ(1524u, Target.Get(80, 2));
  EXPECT_EQ(1041u, Target.Get(82, 2));
  EXPECT_EQ(203u, Target.Get(90, 2));
  EXPECT_EQ(2u, Target.Get(92, 2));
}

TEST_F(DevModeMerge, EveryCutOfASourceStaysInsideIt) {
  Source.Put(kFields, 4, 0xFFFFFFFF);
  for (uint32_t size = 0; size <= 1516; size += size < 230 ? 1 : 7) {
    const TestBlock cut(std::vector<uint8_t>(Source.Data(), Source.Data() + size));
    Merge(cut);
    ASSERT_EQ(1516u, DevMode(Target.Data(), 1516).GetSize()) << size;
  }
}

TEST_F(DevModeMerge, EveryPublicSizeOfASourceStaysInsideIt) {
  Source.Put(kFields, 4, 0xFFFFFFFF);
  for (uint32_t size = 76; size <= 220; ++size) {
    Merge(PublicSource(size));
    ASSERT_EQ(220u, Target.Get(kSize, 2)) << size;
    ASSERT_EQ(1296u, Target.Get(kExtra, 2)) << size;
  }
}

// The caller's own block as target: what it has no room for stays out.
TEST_F(DevModeMerge, CallersBlockIsWrittenInsideItsSizesOnly) {
  DevMode source(Source.Data(), 1516);
  source.Set(&PublicDevMode::dmFields, 0xFFFFFFFFu);
  source.SetFormName("Shelf");
  TestBlock target = PublicSource(110);
  std::vector<uint8_t> bytes = target.Copy();
  bytes.resize(130, 0xEE);
  TestBlock padded(bytes);
  DevMode(padded.Data(), padded.Size).Merge(source, Model());
  EXPECT_EQ(110u, padded.Get(kSize, 2));
  EXPECT_EQ(uint32_t{'S'}, padded.Get(102, 2));
  for (uint32_t i = 110; i < 130; ++i) ASSERT_EQ(0xEEu, padded.Get(i, 1)) << i;
}

TEST_F(DevModeMerge, MergingABlockIntoItselfKeepsIt) {
  DevMode target(Target.Data(), 1516);
  target.Validate(Model());
  const std::vector<uint8_t> before = Target.Copy();
  target.Merge(target, Model());
  // The user form declares its name, which the first validation had no paper for.
  Target.Put(kFields, 4, 0);
  std::vector<uint8_t> expected = before;
  for (uint32_t i = 0; i < 4; ++i) expected[kFields + i] = 0;
  EXPECT_EQ("", Difference(expected.data(), Target.Data(), 1516));
}

}  // namespace
}  // namespace ostvt::test
