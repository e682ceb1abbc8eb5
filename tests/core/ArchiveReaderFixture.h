// A reader over archives in a directory of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/ArchiveReader.h"
#include "core/OFile.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/ZipBuilder.h"

namespace ostvt::test {

inline ZipEntry Entry(const std::string& name, const std::string& data) {
  ZipEntry entry;
  entry.Name = name;
  entry.Data = data;
  return entry;
}

// Text that does not pack to much less than half.
inline std::string NoiseText(size_t size) {
  std::string text;
  uint32_t state = 1;
  while (text.size() < size) {
    state = state * 1664525 + 1013904223;
    text += static_cast<char>(' ' + (state >> 24) % 95);
  }
  return text;
}

class ArchiveReaderFixture : public testing::Test {
 protected:
  OString PathOf(const std::string& name) const { return Directory.Path(name).c_str(); }
  // The archive is open to the reader from here on.
  void AddBytes(const std::string& bytes, const std::string& name = "a.ddz") {
    Directory.Put(name, bytes);
    EXPECT_TRUE(Reader.AddArchive(PathOf(name)));
  }
  void Add(const ZipBuilder& zip, const std::string& name = "a.ddz") {
    AddBytes(zip.Build(), name);
  }

  // "(none)" where the reader has no such member.
  std::string Data(const char* name) {
    uint32_t size = 0xDEADBEEF;
    const uint8_t* data = Reader.GetMemberData(name, &size);
    if (data == nullptr) {
      EXPECT_EQ(0u, size);
      return "(none)";
    }
    return std::string(reinterpret_cast<const char*>(data), size);
  }
  // Separated by commas.
  std::string Names() {
    OStringArray names;
    Reader.GetMemberNames(&names);
    std::string all;
    for (int32_t i = 0; i < names.Count; ++i) {
      if (i > 0) all += ",";
      all += names[i].GetNarrow();
    }
    return all;
  }

  TempDirectory Directory;
  ArchiveReader Reader;
};

}  // namespace ostvt::test
