#include "fonts/FontInfo.h"

#include "core/WholeUnits.h"
#include "model/RecordText.h"

namespace ostvt {
namespace {

template <typename Unit, size_t N>
OString FieldText(const Unit (&field)[N]) {
  OString text;
  text.AssignCount(field, N);
  return text;
}

}  // namespace

// The record has no alignment to rely on.
OString GetFullName(const FontInfo& info) {
  char16_t name[sizeof(info.FullName) / sizeof(char16_t)];
  CopyBytes(name, &info.FullName, sizeof(name));
  return FieldText(name);
}

OString GetFileId(const FontInfo& info) { return FieldText(info.FileId); }
OString GetFileName(const FontInfo& info) { return FieldText(info.FileName); }
OString GetFilePath(const FontInfo& info) { return FieldText(info.FilePath); }

void SetFullName(FontInfo* info, const OString& text) {
  constexpr size_t kUnits = sizeof(info->FullName) / sizeof(char16_t);
  FillBytes(info->FullName, 0, sizeof(info->FullName));
  const std::u16string_view wide = WholeUnits(text.GetWide(), kUnits - 1);
  CopyBytes(info->FullName, wide.data(), wide.size() * sizeof(char16_t));
}

void SetFileId(FontInfo* info, const OString& text) { StoreText(info->FileId, text); }
void SetFileName(FontInfo* info, const OString& text) { StoreText(info->FileName, text); }
void SetFilePath(FontInfo* info, const OString& text) { StoreText(info->FilePath, text); }

}  // namespace ostvt
