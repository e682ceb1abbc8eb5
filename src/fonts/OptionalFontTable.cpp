#include "fonts/OptionalFontTable.h"

#include <utility>

#include "fonts/FontRecords.h"
#include "model/PrinterModel.h"

namespace ostvt {

OptionalFont* OptionalFontTable::GetAt(int32_t index) const {
  return index >= 0 && index < GetCount() ? Fonts[static_cast<size_t>(index)].get() : nullptr;
}

void OptionalFontTable::Add(std::unique_ptr<OptionalFont> font) {
  if (font) Fonts.push_back(std::move(font));
}

int32_t OptionalFontTable::Find(const OString& name) const {
  for (int32_t i = 0; i < GetCount(); ++i) {
    if (GetAt(i)->Name.Match(name)) return i;
  }
  return -1;
}

bool OptionalFontTable::Remove(const OString& name) {
  const int32_t index = Find(name);
  if (index < 0) return false;
  Fonts.erase(Fonts.begin() + index);
  return true;
}

bool OptionalFontTable::ReplaceByName(const OString& name, std::unique_ptr<OptionalFont> font) {
  const int32_t index = Find(name);
  if (index < 0 || !font) return false;
  Fonts[static_cast<size_t>(index)] = std::move(font);
  return true;
}

void OptionalFontTable::ListPredefined(std::vector<OptionalFont*>* list) const {
  list->clear();
  for (const auto& font : Fonts) {
    if (!font->IsCustom()) list->push_back(font.get());
  }
}

bool OptionalFontTable::ApplyExpansionFonts(PrinterModel* model) const {
  std::vector<OptionalFont*> predefined;
  ListPredefined(&predefined);
  if (predefined.empty() || !model) return true;
  OStringArray groups;
  for (const OptionalFont* font : predefined) groups.Add(font->FontGroup);
  return model->SetExpansionFonts(groups);
}

uint32_t OptionalFontTable::Signature() const {
  FontSignature signature;
  for (const auto& font : Fonts) {
    signature.AddText(font->Name);
    signature.AddText(font->Provider);
    signature.AddNumber(font->Type);
    signature.AddNumber(font->Category);
    signature.AddText(font->Description);
    signature.AddText(font->CharacterSet);
    signature.AddNumber(font->CodePage);
    signature.AddNumber(font->SourceCodePage);
    signature.AddText(font->FileName);
    signature.AddText(font->FontId);
    signature.AddText(font->FontGroup);
    signature.AddNumber(font->Location);
    signature.AddText(font->ScreenFont);
    signature.AddNumber(font->Italic);
    signature.AddNumber(font->Weight);
    signature.AddNumber(font->BaseSize);
    signature.AddNumber(font->NominalWidth);
    signature.AddNumber(font->HorizontalRatio);
    signature.AddNumber(font->VerticalRatio);
    signature.AddTable(font->EncodingTable);
  }
  return signature.Get();
}

}  // namespace ostvt
