// A printer with a small model of its own, for tests of settings and of the family.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/DriverPath.h"
#include "model/Caches.h"
#include "model/PrinterModel.h"
#include "platform/KeyStore.h"
#include "store/PrinterId.h"
#include "store/PrinterRegistry.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/TestPrinter.h"
#include "tests/support/ZipBuilder.h"

namespace ostvt::test {

// Lines of the model's sections, "Key=Value" with LF.
struct ModelText {
  std::string Driver = "Ostrel Test";
  std::string Model =
      "Stock.Default.X=4 in\n"
      "Stock.Default.Y=6 in\n"
      "Stock.Minimum.X=0.5 in\n"
      "Stock.Minimum.Y=0.25 in\n"
      "Stock.Maximum.X=4.2 in\n"
      "Stock.Maximum.Y=20 in\n"
      "Resolution=203,300x150\n"
      "~TopOfForm.Maximum=10 mm\n";
  std::string Drawing =
      "Transform.Mirror=true\n"
      "Transform.Inverse=true\n";
  std::string Features;
  std::string Method = "Copies.Limit=999\n";
  std::string Font;
  std::string BarCode;
  std::string Rfid;
  std::string Oem;  // the whole file
};

inline ModelText ColorModelText() {
  ModelText text;
  text.Model += "Color=true\nColor.Spot=2\nColor.DefaultState=Color\n";
  return text;
}

inline void WriteArchives(const TempDirectory& directory, const ModelText& text) {
  ZipBuilder base;
  base.Add("Driver.d",
           "[" + text.Driver + "]\nManufacturer=Manufacturer:Vantrel\nModel=Model:Test\n");
  if (!text.Oem.empty()) base.Add("OEM.d", text.Oem);
  EXPECT_TRUE(base.WriteTo(directory.Path("vt#base.ddz")));
  ZipBuilder family;
  family.Add("Manufacturer.d", "[Vantrel]\nCompanyName=Vantrel\n");
  std::string parts = "Drawing=Drawing:D\nFeatures=Features:F\nMethod=Method:M\n";
  if (!text.Font.empty()) parts += "Font=Font:F\n";
  if (!text.BarCode.empty()) parts += "BarCode=BarCode:B\n";
  if (!text.Rfid.empty()) parts += "RFID=RFID:R\n";
  family.Add("Model.d", "[Test]\n" + parts + text.Model);
  family.Add("Drawing.d", "[D]\n" + text.Drawing);
  family.Add("Features.d", "[F]\n" + text.Features);
  family.Add("Method.d", "[M]\n" + text.Method);
  if (!text.Font.empty()) family.Add("Font.d", "[F]\n" + text.Font);
  if (!text.BarCode.empty()) family.Add("BarCode.d", "[B]\n" + text.BarCode);
  if (!text.Rfid.empty()) family.Add("RFID.d", "[R]\n" + text.Rfid);
  EXPECT_TRUE(family.WriteTo(directory.Path("vt#ost.ddz")));
}

// Restores the path flags at its end.
class PathFlags {
 public:
  PathFlags(bool onNtPath, bool version3) : WasOnNtPath(DriverOnNtPath), Was3(DriverIsVersion3) {
    DriverOnNtPath = onNtPath;
    DriverIsVersion3 = version3;
  }
  ~PathFlags() {
    DriverOnNtPath = WasOnNtPath;
    DriverIsVersion3 = Was3;
  }
  PathFlags(const PathFlags&) = delete;
  PathFlags& operator=(const PathFlags&) = delete;

 private:
  bool WasOnNtPath;
  bool Was3;
};

class SettingsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CloseCaches();  // no record of an earlier test's printer
    OpenCaches();
  }
  void TearDown() override {
    ModelObject.reset();
    Printer.reset();
    CloseCaches();
  }

  // Once in a test.
  void AddPrinter(const ModelText& text = ModelText(), TestPrinterOptions options = {}) {
    WriteArchives(Archives, text);
    options.DriverDirectory = Archives.WidePath(u"");
    while (options.DriverDirectory.ends_with(u'/') || options.DriverDirectory.ends_with(u'\\'))
      options.DriverDirectory.pop_back();
    Printer = std::make_unique<TestPrinter>(options);
    ASSERT_TRUE(Printer->IsReady());
  }
  PrinterModel* Model() {
    if (!ModelObject) {
      if (!Printer) AddPrinter();
      PrinterId id(Printer->Name());
      ModelObject.reset(CreatePrinterModel(id));
    }
    return ModelObject.get();
  }
  PrinterRegistry Store() const { return PrinterRegistry(Printer->Name()); }

  TempDirectory Archives;
  std::unique_ptr<TestPrinter> Printer;
  std::unique_ptr<PrinterModel> ModelObject;
};

// A block under construction. Its bytes are an allocation of exactly their size, so that the
// address sanitizer sees every access outside.
class TestBlock {
 public:
  explicit TestBlock(uint32_t size) : Size(size), Bytes(new uint8_t[size]()) {}
  explicit TestBlock(const std::vector<uint8_t>& bytes)
      : TestBlock(static_cast<uint32_t>(bytes.size())) {
    for (uint32_t i = 0; i < Size; ++i) Bytes[i] = bytes[i];
  }
  void Put(uint32_t offset, uint32_t width, uint32_t value) {
    ASSERT_LE(offset + width, Size);
    for (uint32_t i = 0; i < width; ++i) Bytes[offset + i] = static_cast<uint8_t>(value >> (8 * i));
  }
  void PutText(uint32_t offset, const char* text) {
    for (; *text != 0; ++text) Put(offset++, 1, static_cast<uint8_t>(*text));
  }
  void PutWide(uint32_t offset, const char16_t* text) {
    for (; *text != 0; ++text, offset += 2) Put(offset, 2, *text);
  }
  uint32_t Get(uint32_t offset, uint32_t width) const {
    uint32_t value = 0;
    for (uint32_t i = 0; i < width; ++i) value |= uint32_t{Bytes[offset + i]} << (8 * i);
    return value;
  }
  std::vector<uint8_t> Copy() const { return {Bytes.get(), Bytes.get() + Size}; }
  uint8_t* Data() const { return Bytes.get(); }

  const uint32_t Size;

 private:
  std::unique_ptr<uint8_t[]> Bytes;
};

// The first place where two blocks differ, for a message; "" when they are equal.
inline std::string Difference(const uint8_t* a, const uint8_t* b, uint32_t size) {
  for (uint32_t i = 0; i < size; ++i) {
    if (a[i] != b[i])
      return "offset " + std::to_string(i) + ": " + std::to_string(a[i]) + " against " +
             std::to_string(b[i]);
  }
  return "";
}

namespace detail {

inline void DumpKey(platform::Hive hive, const std::u16string& path, std::string* text) {
  platform::KeyHandle key = platform::OpenKey(hive, path.c_str(), false);
  if (!key) return;
  const auto narrow = [](const std::u16string& wide) {
    std::string bytes;
    for (const char16_t unit : wide) {
      bytes.push_back(static_cast<char>(unit));
      bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
  };
  *text += "[" + narrow(path) + "]";
  char16_t name[platform::kNameUnits];
  for (int i = 0; platform::EnumerateValue(key, i, name); ++i) {
    int size = 0;
    uint32_t type = 0;
    platform::GetValueSize(key, name, &size);
    std::string data(static_cast<size_t>(size) + 1, '\0');
    platform::ReadValue(key, name, data.data(), size, &type);
    *text += narrow(name) + "=" + std::to_string(type) + ":" + data + ";";
  }
  for (int i = 0; platform::EnumerateKey(key, i, name); ++i)
    DumpKey(hive, path + u"\\" + name, text);
  platform::CloseKey(key);
}

}  // namespace detail

// All that the store holds for the driver and for its printers: names, types and bytes.
inline std::string StoreDump() {
  std::string text;
  detail::DumpKey(platform::Hive::kCurrentUser, u"SOFTWARE\\Vantrel", &text);
  detail::DumpKey(platform::Hive::kLocalMachine, u"SOFTWARE\\Vantrel", &text);
  detail::DumpKey(platform::Hive::kLocalMachine,
                  u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers", &text);
  return text;
}

// "" for equal dumps, else a few bytes from the first difference on.
inline std::string DumpDifference(const std::string& before, const std::string& after) {
  if (before == after) return "";
  size_t at = 0;
  while (at < before.size() && at < after.size() && before[at] == after[at]) ++at;
  return "at " + std::to_string(at) + ": " + after.substr(at > 80 ? at - 80 : 0, 160);
}

}  // namespace ostvt::test
