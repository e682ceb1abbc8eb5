// What both record builders ask of the section in force.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/ModelDefinition.h"

namespace ostvt {

// A word of a list, and what it sets.
struct WordBit {
  const char* Word;
  uint32_t Bit;
};

// The model's section names one by this key. Selects the model's section.
inline bool HasLink(ModelDefinition* definition, const char* key) {
  definition->SelectContext(Context::kModel);
  return !definition->GetOverride(key).IsEmpty();
}

class SectionReader {
 protected:
  explicit SectionReader(ModelDefinition& definition) : Definition(definition) {}

  bool Flag(const char* key) { return Definition.GetBoolEx(key); }
  bool Has(const char* key, const char* word) { return Definition.ListContainsEx(key, word); }
  // The bits of the words in the list; case is ignored.
  template <size_t N>
  uint16_t Bits(const char* key, const WordBit (&words)[N]) {
    OStringArray list;
    Definition.GetListEx(key, &list);
    uint32_t bits = 0;
    for (const WordBit& entry : words) {
      if (DefinitionFile::Contains(list, entry.Word)) bits |= entry.Bit;
    }
    return static_cast<uint16_t>(bits);
  }

  ModelDefinition& Definition;
};

}  // namespace ostvt
