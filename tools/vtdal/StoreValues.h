// Values of the store as text on the command line and back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/ORegistry.h"

namespace vtdal {

enum class ValueType { kAsStored, kString, kDword, kInt, kByte, kMulti, kHex };

bool ParseType(const std::string& name, ValueType* type);
const char* TypeName(ValueType type);
// The name of a type of the store.
std::string StoredTypeName(uint32_t type);

struct StoredValue {
  uint32_t Type = 0;
  std::vector<uint8_t> Bytes;
};

// `keyPath` in its canonical form. False if there is no such value.
bool ReadStored(const ostvt::ORegistry& registry, const ostvt::OString& keyPath,
                const char16_t* name, StoredValue* value);

// Parts of a list are parted by `separator`. False when the value's size is none of the type's.
bool ShowValue(const StoredValue& value, ValueType type, const char* separator, std::string* text);

// A decimal or hexadecimal number with an optional sign. False when it is none, or out of range.
bool ParseNumber(const std::u16string& word, int64_t least, int64_t most, int64_t* number);

// As stored, cut to what fits a line of a list.
bool ShowInLine(const StoredValue& value, std::string* text);

// The words of a command line as a value. False with the reason in `error`.
bool MakeValue(const std::vector<std::u16string>& words, ValueType type, StoredValue* value,
               std::string* error);

// A word of the command line as a flag, 0 or 1, and as a number up to kNumberLimit in either
// direction. False with the reason in `error`.
bool ParseFlag(const std::u16string& word, int32_t* value, std::string* error);
bool ParseInteger(const std::u16string& word, int32_t* value, std::string* error);

// A name of the store as it is written in a path, on one line.
std::string PathElement(const char16_t* name);

}  // namespace vtdal
