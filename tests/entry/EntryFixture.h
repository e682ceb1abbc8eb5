// A printer with a model, called through the exports as the platform calls them.
#pragma once

#include "entry/Exports.h"
#include "platform/Errors.h"
#include "platform/Spooler.h"
#include "settings/DevModeRecord.h"
#include "tests/settings/SettingsFixture.h"
#include "tests/support/GuardedBlock.h"

namespace ostvt::test {

inline constexpr uint32_t kPoison = 0xBEEF;  // no call leaves this error number

// Offsets in a device mode.
inline constexpr size_t kAtSpecVersion = 64;
inline constexpr size_t kAtDriverVersion = 66;
inline constexpr size_t kAtSize = 68;
inline constexpr size_t kAtExtra = 70;
inline constexpr size_t kAtFields = 72;
inline constexpr size_t kAtCopies = 86;

class OpenHandle {
 public:
  explicit OpenHandle(const OString& name, uint32_t access = platform::kPrinterAllAccess)
      : Printer(platform::OpenPrinter(name.GetWide(), access)) {}
  ~OpenHandle() { platform::ClosePrinter(Printer); }
  OpenHandle(const OpenHandle&) = delete;
  OpenHandle& operator=(const OpenHandle&) = delete;
  operator platform::PrinterHandle() const { return Printer; }

 private:
  platform::PrinterHandle Printer;
};

class EntryTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    platform::SetLastErrorNumber(kPoison);
  }

  // Valid as long as the printer.
  const char16_t* Name() {
    if (!(GivenName == Printer->Name())) GivenName = Printer->Name();
    return GivenName.GetWide();
  }
  std::u16string NameText() { return Name(); }

  // The printer's driver default, made and stored where it was not.
  std::vector<uint8_t> DriverDefault() {
    std::vector<uint8_t> block(1516, 0xCD);
    int32_t size = 1516;
    EXPECT_EQ(DrvConvertDevMode(Name(), nullptr, block.data(), &size, 4), 1);
    return block;
  }
  // What the spooler holds as the printer's device mode; empty when there is none.
  std::vector<uint8_t> StoredDevMode() {
    OpenHandle handle(Printer->Name());
    platform::PrinterRecord record;
    EXPECT_TRUE(platform::GetPrinterRecord(handle, &record));
    return record.DevMode;
  }
  void StoreDevModeInSpooler(const std::vector<uint8_t>& block) {
    OpenHandle handle(Printer->Name());
    ASSERT_TRUE(platform::SetPrinterDevMode(handle, block.data(), uint32_t(block.size())));
  }
  DocumentPropertyHeader DocumentHeader(uint32_t mode, void* output, void* input = nullptr) {
    DocumentPropertyHeader header = {};
    header.cbSize = sizeof header;
    header.pszPrinterName = Name();
    header.pdmIn = input;
    header.pdmOut = output;
    header.cbOut = 0xCCCCCCCC;
    header.fMode = mode;
    return header;
  }
  int32_t AskWithoutPages(DocumentPropertyHeader* header) {
    return DrvDocumentPropertySheets(nullptr, reinterpret_cast<intptr_t>(header));
  }

 private:
  OString GivenName;
};

inline uint16_t WordAt(const std::vector<uint8_t>& bytes, size_t offset) {
  return static_cast<uint16_t>(bytes.at(offset) | bytes.at(offset + 1) << 8);
}
inline uint32_t DwordAt(const std::vector<uint8_t>& bytes, size_t offset) {
  return WordAt(bytes, offset) | uint32_t{WordAt(bytes, offset + 2)} << 16;
}
inline void PutWordAt(std::vector<uint8_t>* bytes, size_t offset, uint32_t value) {
  bytes->at(offset) = static_cast<uint8_t>(value);
  bytes->at(offset + 1) = static_cast<uint8_t>(value >> 8);
}

}  // namespace ostvt::test
