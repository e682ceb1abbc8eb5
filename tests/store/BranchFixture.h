// Branches of a test's store, as the lines that they are written in.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "store/ORegistry.h"
#include "tests/store/StoreText.h"
#include "tests/support/TestStore.h"

namespace ostvt::test {

class BranchTest : public ::testing::Test {
 protected:
  // Where these tests keep their keys, and how a header shows it.
  static constexpr char kBase[] = "USER:Tests-Store";
  static constexpr char kDisplay[] = "HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers\\Tests-Store";

  static OString At(const OString& path) { return OString(kBase) + "/" + path; }
  static std::string Header(const std::string& below = "") {
    return "[" + std::string(kDisplay) + below + "]";
  }
  static std::string Deletion(const std::string& below = "") {
    return "[-" + std::string(kDisplay) + below + "]";
  }
  static OStringArray Lines(std::initializer_list<std::string> lines) {
    OStringArray array;
    for (const std::string& line : lines) array.Add(line.c_str());
    return array;
  }
  static std::vector<std::string> List(const OStringArray& lines) {
    std::vector<std::string> list;
    for (int32_t i = 0; i < lines.Count; ++i) list.push_back(Text(lines[i]));
    return list;
  }
  std::vector<std::string> Export(uint32_t flags = 0, const OString& path = kBase) {
    OStringArray lines;
    Exported = Registry.ExportBranch(path, &lines, flags);
    return List(lines);
  }
  // The lines behind the header of the base key.
  std::vector<std::string> ExportedValues() {
    std::vector<std::string> lines = Export();
    lines.erase(lines.begin());
    return lines;
  }
  void Import(std::initializer_list<std::string> lines, uint32_t flags = 0) {
    ORegistry importing;
    EXPECT_TRUE(importing.ImportBranch(Lines(lines), flags));
  }
  // Of values in the base key.
  void ImportValues(std::initializer_list<std::string> lines) {
    OStringArray array = Lines({Header()});
    array.Append(Lines(lines));
    ORegistry importing;
    importing.ImportBranch(array, 0);
  }
  // What the store has for a value of the base key: "TYPE:HEX BYTES".
  static std::string Stored(const OString& value, const char16_t* below = u"") {
    std::vector<uint8_t> bytes(20000);
    uint32_t type = 0;
    const std::u16string path = std::u16string(u"SOFTWARE\\Vantrel\\Drivers\\Tests-Store") + below;
    platform::KeyHandle key = platform::OpenKey(platform::Hive::kCurrentUser, path.c_str(), false);
    const int size = platform::ReadValue(key, value.GetWide(), bytes.data(), 20000, &type);
    platform::CloseKey(key);
    if (size < 0) return "(none)";
    return std::to_string(type) + ":" + Text(OString::HexOf(bytes.data(), size));
  }
  std::string Keys(const OString& path = kBase) const {
    OStringArray names;
    return Registry.EnumerateKeys(path, &names) < 0 ? "(none)" : Joined(names);
  }
  std::string Values(const OString& path = kBase) const {
    OStringArray names;
    return Registry.EnumerateValues(path, &names) < 0 ? "(none)" : Joined(names);
  }

  TestStore Store;
  ORegistry Registry;
  bool Exported = false;
};

using TextLines = std::vector<std::string>;

}  // namespace ostvt::test
