// The lines that a branch of the store is written in; see "The text of a branch" in
// docs/formats.md. Nothing here touches the store.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

// A line without the blanks around it and without the "\" that breaks it.
struct BranchLine {
  explicit BranchLine(const OString& line);

  std::u16string_view Text;  // lives as long as the line's text does
  bool IsBroken = false;     // a "\" stood at the end
};

struct BranchHeader {
  OString Key;  // a key path; without a hive it leads nowhere
  bool IsDeletion = false;
};

// `key` in its canonical form.
OString MakeBranchHeader(const OString& key, bool isDeletion);
// False if the line, trimmed, does not begin with "[".
bool ParseBranchHeader(std::u16string_view line, BranchHeader* header);

struct BranchValue {
  OString Name;  // as the store has it; "" is the key's default value
  uint32_t Type = 0;
  std::vector<uint8_t> Data;
};

// Strings and lists are cut where they end for a reader. Neither the name nor a string may hold a
// line end.
void AppendBranchValue(const BranchValue& value, OStringArray* lines);
// `line` is whole, its parts joined. What digits there are count; types are those of strings,
// double words and lists, and that of binary values for all others. False if the line is no value.
bool ParseBranchValue(std::u16string_view line, BranchValue* value);
// The line begins a value: there is a name.
bool BeginsValue(std::u16string_view line);
// The line begins a value of bytes, which goes on behind a "\".
bool IsBytesValue(std::u16string_view line);

}  // namespace ostvt
