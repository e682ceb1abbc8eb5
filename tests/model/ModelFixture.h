// A test printer with definition files of the test's own: Define them, then Install, then Open.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/Caches.h"
#include "model/ModelDefinition.h"
#include "model/PrinterModel.h"
#include "store/PrinterId.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/TestPrinter.h"
#include "tests/support/ZipBuilder.h"

namespace ostvt::test {

class ModelFixture : public testing::Test {
 protected:
  void SetUp() override { OpenCaches(); }
  void TearDown() override {
    Models.clear();
    CloseCaches();
    // Where the spooler keeps its drivers, the next test would find them.
    for (const std::filesystem::path& archive : Installed) std::filesystem::remove(archive);
    Installed.clear();
    Printers.clear();
  }

  // A member of the maker's base archive, or of the family's one.
  void Define(const std::string& member, const std::string& text) { Base.Add(member, text); }
  void DefineInFamily(const std::string& member, const std::string& text) {
    Family.Add(member, text);
  }
  // The usual chain, with these lines in the model's section.
  void DefineChain(const std::string& modelLines) {
    Define("Driver.d", "[Ostrel Test]\nManufacturer=Manufacturer:Maker\nModel=Model:One\n");
    Define("Manufacturer.d", "[Maker]\nCompanyName=Maker Ltd\n");
    Define("Model.d", "[One]\n" + modelLines);
  }

  TestPrinter& Install(const TestPrinterOptions& options = {}) {
    Printers.push_back(std::make_unique<TestPrinter>(options));
    TestPrinter& printer = *Printers.back();
    EXPECT_TRUE(printer.IsReady());
    const std::filesystem::path directory = printer.DriverDirectory();
    const std::string maker(options.DataFile.begin() + 3, options.DataFile.begin() + 5);
    for (const auto& [name, zip] : {std::pair("base", &Base), std::pair("ost", &Family)}) {
      Installed.push_back(directory / (maker + "#" + name + ".ddz"));
      EXPECT_TRUE(zip->WriteTo(Installed.back().string()));
    }
    return printer;
  }

  // A model that lives until the end of the test.
  PrinterModel& Open(const OString& name) {
    PrinterId id(name);
    Models.push_back(std::make_unique<PrinterModel>());
    EXPECT_TRUE(Models.back()->Open(id));
    return *Models.back();
  }
  PrinterModel& Open() { return Open(Printers.back()->Name()); }
  PrinterModel& InstallAndOpen(const TestPrinterOptions& options = {}) {
    Install(options);
    return Open();
  }

  // Numbers as they lie in a record.
  template <typename Record>
  static std::vector<uint8_t> BytesOf(const Record& record) {
    std::vector<uint8_t> bytes(sizeof record);
    memcpy(bytes.data(), &record, sizeof record);
    return bytes;
  }
  static uint32_t Word(const std::vector<uint8_t>& bytes, size_t offset) {
    return static_cast<uint32_t>(bytes.at(offset) | bytes.at(offset + 1) << 8);
  }
  static uint32_t Dword(const std::vector<uint8_t>& bytes, size_t offset) {
    return Word(bytes, offset) | Word(bytes, offset + 2) << 16;
  }
  static std::string Text(const std::vector<uint8_t>& bytes, size_t offset, size_t size) {
    const std::string field(bytes.begin() + static_cast<ptrdiff_t>(offset),
                            bytes.begin() + static_cast<ptrdiff_t>(offset + size));
    return field.substr(0, field.find('\0'));
  }

  TempDirectory Files;
  std::vector<std::filesystem::path> Installed;
  ZipBuilder Base;
  ZipBuilder Family;
  std::vector<std::unique_ptr<TestPrinter>> Printers;
  std::vector<std::unique_ptr<PrinterModel>> Models;
};

}  // namespace ostvt::test
