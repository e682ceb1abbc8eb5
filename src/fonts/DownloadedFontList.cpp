#include "fonts/DownloadedFontList.h"

#include "core/WhiteSpace.h"
#include "fonts/FontRecords.h"

namespace ostvt {
namespace {

bool SameTable(const WordArray& a, const WordArray& b) {
  return a.Count == b.Count && CompareBytes(a.Data, b.Data, EncodingTableSize(a)) == 0;
}

OString BaseName(const OString& fileName) {
  const int point = fileName.Find('.');
  OString name = point >= 0 ? fileName.Left(point) : fileName;
  name.Trim(kWhiteSpace);
  return name;
}

}  // namespace

bool DownloadedFont::IsSameAs(const DownloadedFontFields& other) const {
  if (GetFullName(Info).CompareNoCase(GetFullName(other.Info)) != 0) return false;
  if (IsBitmap() != other.IsBitmap()) return false;
  return !IsBitmap() || (PointSize == other.PointSize && ScaleFactor == other.ScaleFactor &&
                         SameTable(EncodingTable, other.EncodingTable));
}

int32_t DownloadedFontList::GetCount() const {
  int32_t count = 0;
  for (const DownloadedFont* font = GetFirst(); font; font = font->GetNext()) ++count;
  return count;
}

DownloadedFont* DownloadedFontList::FindSame(const DownloadedFont& font) const {
  DownloadedFont* found = GetFirst();
  while (found && !found->IsSameAs(font)) found = found->GetNext();
  return found;
}

bool DownloadedFontList::FileIdExists(const OString& text) const {
  for (const DownloadedFont* font = GetFirst(); font; font = font->GetNext()) {
    if (GetFileId(font->Info) == text) return true;
  }
  return false;
}

bool DownloadedFontList::FileNameExists(const OString& text) const {
  for (const DownloadedFont* font = GetFirst(); font; font = font->GetNext()) {
    if (BaseName(GetFileName(font->Info)) == text) return true;
  }
  return false;
}

uint32_t DownloadedFontList::Signature() const {
  FontSignature signature;
  for (const DownloadedFont* font = GetFirst(); font; font = font->GetNext()) {
    signature.AddBytes(&font->Info, sizeof(font->Info));
    signature.AddNumber(font->Type);
    signature.AddNumber(font->Status);
    signature.AddText(font->FaceName);
    signature.AddNumber(font->Weight);
    signature.AddNumber(font->Italic);
    signature.AddNumber(font->CharacterSet);
    signature.AddNumber(font->PointSize);
    signature.AddNumber(font->ScaleFactor);
    signature.AddTable(font->EncodingTable);
  }
  return signature.Get();
}

}  // namespace ostvt
