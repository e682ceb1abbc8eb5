// The optional fonts that a user may add: those of the model's cards and packs, and his own.
#pragma once

#include <cstdint>
#include <memory>

#include "core/OString.h"
#include "core/OStringArray.h"
#include "fonts/OptionalFont.h"

namespace ostvt {

class MessageTexts;
class OptionalFontTable;
class PrinterModel;

// What the family's printers ask of an optional font.
struct OfferedFontRules {
  bool HasFileNames = false;
  bool HasFontIds = false;
  bool HasLocations = false;  // fonts lie in storages that have codes
  uint32_t DefaultLocation = 0;
};

// `model` is never null here.

// Providers in the order in which they are shown. True if the last one stands for the user's own
// fonts: it has one item, which makes a new custom font.
bool ListOfferedProviders(PrinterModel* model, const MessageTexts& texts, OStringArray* providers);
OString CustomFontItem(const MessageTexts& texts);
// A provider's fonts that `table` doesn't have yet.
void ListOfferedFonts(PrinterModel* model, const OString& provider, const OptionalFontTable& table,
                      OStringArray* fonts);
// A new record of a provider's font, as the definition describes it.
std::unique_ptr<OptionalFont> NewOfferedFont(PrinterModel* model, const OString& provider,
                                             const OString& font, const OfferedFontRules& rules);

}  // namespace ostvt
