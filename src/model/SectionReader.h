// What both record builders ask of the section in force.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/CapabilitiesDataRecord.h"
#include "model/ModelDefinition.h"

namespace ostvt {

// A word of a list, and what it sets.
struct WordBit {
  const char* Word;
  uint32_t Bit;
};

// The bits of the words in `list`; case is ignored.
template <size_t N>
uint32_t BitsOf(const OStringArray& list, const WordBit (&words)[N]) {
  uint32_t bits = 0;
  for (const WordBit& entry : words) {
    if (DefinitionFile::Contains(list, entry.Word)) bits |= entry.Bit;
  }
  return bits;
}

// Ways of printing that a page, a font group or a radio tag can be barred from. Bar codes have
// other words for some of these bits.
inline constexpr WordBit kPageMethods[] = {{"FormatPage", kRestrictsVariableData},
                                           {"Serialization", kRestrictsSerialization},
                                           {"StaticPage", kRestrictsStatic},
                                           {"TemplateFile", kRestrictsTemplateFile}};

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
  template <size_t N>
  uint32_t Bits(const OString& key, const WordBit (&words)[N]) {
    OStringArray list;
    Definition.GetListEx(key, &list);
    return BitsOf(list, words);
  }

  ModelDefinition& Definition;
};

}  // namespace ostvt
