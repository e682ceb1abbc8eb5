#include <gtest/gtest.h>

#include <filesystem>

#include "model/ArchiveCache.h"
#include "model/Caches.h"
#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

constexpr uint32_t kUnknown = 0xFFFFFFFF;

class DeviceCapabilities : public EntryTest {
 protected:
  uint32_t Ask(int capability, void* output = nullptr, const void* devMode = nullptr) {
    return DrvDeviceCapabilities(nullptr, Name(), static_cast<uint16_t>(capability), output,
                                 devMode);
  }
};

TEST_F(DeviceCapabilities, NameAloneIsEnough) {
  AddPrinter();
  EXPECT_EQ(Ask(1), 0x1250Fu);
  EXPECT_EQ(Ask(13), 2u);
}

TEST_F(DeviceCapabilities, HandleWinsWhenTheNameIsEmpty) {
  AddPrinter();
  OpenHandle handle(Printer->Name());
  for (const char16_t* name : {static_cast<const char16_t*>(nullptr), u""}) {
    EXPECT_EQ(DrvDeviceCapabilities(handle, name, 13, nullptr, nullptr), 2u);
  }
  EXPECT_EQ(DrvDeviceCapabilities(handle, Name(), 13, nullptr, nullptr), 2u);
}

TEST_F(DeviceCapabilities, HandleWinsOverTheName) {
  AddPrinter();
  OpenHandle handle(Printer->Name());
  EXPECT_EQ(DrvDeviceCapabilities(handle, u"No such printer", 13, nullptr, nullptr), 2u);
}

// As a print dialog asks: for every number and then for the data, also about a block of its own.
// A top of form is what a model limits by a key of its own.
TEST_F(DeviceCapabilities, AWarmCallTouchesNoArchive) {
  AddPrinter();
  std::vector<uint8_t> block = DriverDefault();
  const int32_t topOfForm = 1000;
  memcpy(block.data() + 220 + offsetof(ModelRecord, OstrelSettings.topOfForm), &topOfForm,
         sizeof topOfForm);
  for (int capability : {1, 8}) Ask(capability, nullptr, block.data());

  const uint32_t opens = TheArchiveCache()->GetOpenCount();
  std::vector<uint8_t> output(1 << 16);
  for (int capability = 0; capability <= 34; ++capability) {
    for (const void* devMode :
         {static_cast<const void*>(nullptr), static_cast<const void*>(block.data())}) {
      Ask(capability, nullptr, devMode);
      Ask(capability, output.data(), devMode);
    }
  }
  int32_t size = 0;
  EXPECT_EQ(DrvConvertDevMode(Name(), nullptr, nullptr, &size, 4), 0);
  EXPECT_EQ(size, 1516);
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  EXPECT_EQ(AskWithoutPages(&header), 1516);
  header = DocumentHeader(kModeCopy, block.data());
  EXPECT_EQ(AskWithoutPages(&header), 1);
  EXPECT_EQ(TheArchiveCache()->GetOpenCount(), opens);
}

TEST_F(DeviceCapabilities, UnknownPrinterIsUnknown) {
  AddPrinter();
  for (uint16_t capability = 0; capability < 36; capability++) {
    EXPECT_EQ(DrvDeviceCapabilities(nullptr, u"No Such Printer", capability, nullptr, nullptr),
              kUnknown);
    EXPECT_EQ(DrvDeviceCapabilities(nullptr, nullptr, capability, nullptr, nullptr), kUnknown);
  }
}

TEST_F(DeviceCapabilities, Capability34IsUnknown) {
  AddPrinter();
  for (int capability : {0, 34, 35, 0x7FFF, 0x8000, 0xFFFF}) {
    EXPECT_EQ(Ask(capability), kUnknown) << capability;
  }
}

TEST_F(DeviceCapabilities, SizesAndVersionsAreThoseOfADefaultBlock) {
  AddPrinter();
  EXPECT_EQ(Ask(8), 220u);
  EXPECT_EQ(Ask(9), 1296u);
  EXPECT_EQ(Ask(10), 1025u);
  EXPECT_EQ(Ask(11), 0x0607u);
}

// The answer is about the block that this driver would make of the caller's.
TEST_F(DeviceCapabilities, SizesDoNotFollowTheCallersBlock) {
  AddPrinter();
  GuardedBlock older(188 + 10, 0);
  older.PutWord(kAtSpecVersion, 800);
  older.PutWord(kAtDriverVersion, 0x0101);
  older.PutWord(kAtSize, 188);
  older.PutWord(kAtExtra, 10);
  EXPECT_EQ(Ask(8, nullptr, older.Data()), 220u);
  EXPECT_EQ(Ask(9, nullptr, older.Data()), 1296u);
  EXPECT_EQ(Ask(10, nullptr, older.Data()), 1025u);
  EXPECT_EQ(Ask(11, nullptr, older.Data()), 0x0607u);
}

TEST_F(DeviceCapabilities, CallersBlockIsReadOnlyAsFarAsItsHeaderSays) {
  AddPrinter();
  for (uint32_t publicSize : {0u, 1u, 71u, 72u, 90u, 103u, 187u, 188u, 220u}) {
    for (uint32_t extra : {0u, 8u, 9u, 164u, 1296u}) {
      size_t length = publicSize + extra < 72 ? 72 : publicSize + extra;
      GuardedBlock block(publicSize < 72 ? 72 : length, 0xFF);
      block.PutWord(kAtSize, publicSize);
      block.PutWord(kAtExtra, extra);
      EXPECT_EQ(Ask(8, nullptr, block.Data()), 220u) << publicSize << " " << extra;
    }
  }
}

TEST_F(DeviceCapabilities, CountAndDataOfAPairAgree) {
  AddPrinter();
  for (int capability : {2, 3, 6, 12, 13, 14, 16, 25, 33}) {
    uint32_t count = Ask(capability);
    ASSERT_NE(count, kUnknown) << capability;
    std::vector<uint8_t> output(count * 128 + 1, 0xCD);
    EXPECT_EQ(Ask(capability, output.data()), count) << capability;
    EXPECT_EQ(output.back(), 0xCD) << capability;
  }
  EXPECT_EQ(Ask(2), Ask(3));
  EXPECT_EQ(Ask(2), Ask(16));
}

TEST_F(DeviceCapabilities, ResolutionsComeInTheModelsOrder) {
  AddPrinter();
  int32_t pairs[4] = {};
  EXPECT_EQ(Ask(13, pairs), 2u);
  EXPECT_EQ(pairs[0], 203);
  EXPECT_EQ(pairs[1], 203);
  EXPECT_EQ(pairs[2], 300);
  EXPECT_EQ(pairs[3], 150);
}

TEST_F(DeviceCapabilities, ColourModelHasColourFields) {
  AddPrinter(ColorModelText());
  EXPECT_EQ(Ask(1), 0x1812D0Fu);
  EXPECT_EQ(Ask(32), 1u);
}

// A missing archive leaves a model without numbers, not without answers.
TEST_F(DeviceCapabilities, WithoutArchivesTheModelIsEmpty) {
  Printer = std::make_unique<TestPrinter>();
  ASSERT_TRUE(Printer->IsReady());
  EXPECT_EQ(Ask(1), 0x1250Fu);
  EXPECT_EQ(Ask(13), 0u);
  EXPECT_EQ(Ask(8), 220u);
}

TEST_F(DeviceCapabilities, CorruptArchiveCountsAsMissing) {
  std::string junk = "PK\x05\x06 nothing of the kind";
  Archives.Put("vt#base.ddz", junk);
  Archives.Put("vt#ost.ddz", junk);
  TestPrinterOptions options;
  options.DriverDirectory = Archives.WidePath(u".").substr(0, Archives.WidePath(u".").size() - 2);
  Printer = std::make_unique<TestPrinter>(options);
  ASSERT_TRUE(Printer->IsReady());
  EXPECT_EQ(Ask(13), 0u);
}

TEST_F(DeviceCapabilities, AskingLeavesTheStoreAsItWas) {
  AddPrinter();
  Ask(13);
  std::string before = StoreDump();
  std::vector<uint8_t> output(65536);
  for (uint16_t capability = 0; capability < 36; capability++) Ask(capability, output.data());
  EXPECT_EQ(StoreDump(), before);
}

#ifndef _WIN32  // an open archive can't be taken away there
TEST_F(DeviceCapabilities, WarmCallsNeedNoArchive) {
  AddPrinter();
  EXPECT_EQ(Ask(13), 2u);
  for (const auto& file : std::filesystem::directory_iterator(Archives.Path())) {
    std::filesystem::remove(file.path());
  }
  EXPECT_EQ(Ask(13), 2u);
  EXPECT_EQ(Ask(18), 999u);
  EXPECT_EQ(Ask(8), 220u);
}
#endif

}  // namespace
}  // namespace ostvt::test
