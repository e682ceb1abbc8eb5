// Values of the store, past every class under test.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/OString.h"
#include "platform/KeyStore.h"

namespace ostvt::test {

using Bytes = std::vector<uint8_t>;

// "Shelf" as 16-bit units with a terminator.
inline Bytes WideBytes(const std::string& text) {
  Bytes bytes;
  for (const char unit : text + '\0') {
    bytes.push_back(static_cast<uint8_t>(unit));
    bytes.push_back(0);
  }
  return bytes;
}

inline void WriteStored(const char16_t* key, const char16_t* name, const Bytes& data,
                        uint32_t type) {
  platform::KeyHandle opened = platform::OpenKey(platform::Hive::kLocalMachine, key, true);
  EXPECT_EQ(static_cast<int>(data.size()),
            platform::WriteValue(opened, name, data.data(), static_cast<int>(data.size()), type));
  platform::CloseKey(opened);
}

inline Bytes ReadStored(const char16_t* key, const char16_t* name, uint32_t expectedType,
                        platform::Hive hive = platform::Hive::kLocalMachine) {
  platform::KeyHandle opened = platform::OpenKey(hive, key, false);
  int size = 0;
  uint32_t type = 0;
  platform::GetValueSize(opened, name, &size);
  Bytes data(static_cast<size_t>(size));
  size = platform::ReadValue(opened, name, data.data(), size, &type);
  platform::CloseKey(opened);
  data.resize(static_cast<size_t>(std::max(size, 0)));
  if (size >= 0) {
    EXPECT_EQ(expectedType, type);
  }
  return data;
}

// "Form 01: Data;Form 01: Name;".
inline std::string ValuesOf(const char16_t* key) {
  platform::KeyHandle opened = platform::OpenKey(platform::Hive::kLocalMachine, key, false);
  std::vector<std::string> names;
  char16_t name[platform::kNameUnits];
  for (int i = 0; platform::EnumerateValue(opened, i, name); ++i)
    names.push_back(OString(name).GetNarrow());
  platform::CloseKey(opened);
  std::sort(names.begin(), names.end());
  std::string text;
  for (const std::string& each : names) text += each + ";";
  return text;
}

}  // namespace ostvt::test
