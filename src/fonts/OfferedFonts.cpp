#include "fonts/OfferedFonts.h"

#include "fonts/MessageTexts.h"
#include "fonts/OptionalFontTable.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

constexpr int32_t kMessageCustomProvider = 515;
constexpr int32_t kMessageCustomFont = 517;

}  // namespace

bool ListOfferedProviders(PrinterModel* model, const MessageTexts& texts, OStringArray* providers) {
  providers->SetSize(0);
  if (model->AllowsPredefinedFonts()) model->GetFontProviders(providers);
  if (providers->Count > 1) providers->Sort();
  if (!model->AllowsCustomFonts()) return false;
  providers->Add(texts.GetMessage(kMessageCustomProvider));
  return true;
}

OString CustomFontItem(const MessageTexts& texts) { return texts.GetMessage(kMessageCustomFont); }

void ListOfferedFonts(PrinterModel* model, const OString& provider, const OptionalFontTable& table,
                      OStringArray* fonts) {
  model->GetProviderFonts(provider, fonts);
  for (int32_t i = fonts->Count - 1; i >= 0; --i) {
    if (table.Find((*fonts)[i]) >= 0) fonts->RemoveAt(i);
  }
}

std::unique_ptr<OptionalFont> NewOfferedFont(PrinterModel* model, const OString& provider,
                                             const OString& font, const OfferedFontRules& rules) {
  const auto value = [&](const char* key) {
    return model->GetProviderFontValue(provider, font, key);
  };
  auto record = std::make_unique<OptionalFont>();
  record->Name = font;
  record->Provider = provider;
  if (value("Type").CompareNoCase("Bitmap") == 0) record->Type = kOptionalFontBitmap;
  record->Description = value("Description");
  record->CharacterSet = value("CharacterSet");
  if (rules.HasFileNames) record->FileName = value("FileName");
  if (rules.HasFontIds) record->FontId = value("FontID");
  if (rules.HasLocations) {
    const OString location = value("Location");
    record->Location = location.IsEmpty() ? rules.DefaultLocation : location.GetWide()[0];
  }
  record->FontGroup = value("~FontGroup");
  return record;
}

}  // namespace ostvt
