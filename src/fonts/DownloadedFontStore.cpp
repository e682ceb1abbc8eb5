// The downloaded fonts' life in the store: numbered values in one key, and how many fonts they are.
#include <memory>

#include "fonts/DownloadedFontList.h"
#include "fonts/FontRecords.h"
#include "model/PrinterModel.h"
#include "store/NumberedEntries.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

// In front of the names of all values.
constexpr char kFonts[] = "Fonts:Downloaded Font ";
constexpr char kTotal[] = "Fonts:Downloaded Font Total";

// In front of a font's values. The doubled colon is a plain one in their names.
OString FontPath(int32_t number) { return kFonts + OString::FromInt(number, 2) + ":: "; }

bool ReadSwitch(const ORegistry& store, const char* name) {
  return store.ReadByte(OString("Settings:Fonts/Downloaded:: ") + name, 1) != 0;
}

uint16_t ReadWord(const ORegistry& store, const OString& path, uint16_t defaultValue) {
  return static_cast<uint16_t>(store.ReadDword(path, defaultValue));
}

// Null without the whole of its FontInfo.
std::unique_ptr<DownloadedFont> Read(const ORegistry& store, const OString& path) {
  auto font = std::make_unique<DownloadedFont>();
  FontInfo& info = font->Info;
  if (store.ReadBinary(path + "FontInfo", &info, sizeof(info)) != sizeof(info)) return nullptr;
  // Others may have stored a request, or texts that fill their fields.
  info.Request = kFontRequestNone;
  info.FullName[63] = 0;
  info.FileId[63] = info.FileName[63] = info.FilePath[63] = 0;
  font->Type = ReadWord(store, path + "Type", font->Type);
  font->Status = ReadWord(store, path + "Status", font->Status);
  if (font->Status == kDownloadedTransient) font->Status = kDownloadedNormal;
  font->Italic = store.ReadByte(path + "Italic", font->Italic);
  font->Weight = ReadWord(store, path + "Weight", font->Weight);
  font->FaceName = store.ReadString(path + "Face Name", font->FaceName);
  font->CharacterSet = store.ReadByte(path + "Character Set", font->CharacterSet);
  if (!font->IsBitmap()) return font;
  font->PointSize = store.ReadDword(path + "Point Size", font->PointSize);
  font->ScaleFactor = store.ReadDword(path + "Scale Factor", font->ScaleFactor);
  font->EncodingTable.SetSize(kEncodingEntries);
  ReadEncodingTable(store, path + "Encoding Table", &font->EncodingTable);
  return font;
}

bool Write(ORegistry& store, const OString& path, const DownloadedFont& font) {
  const uint16_t status = font.Status == kDownloadedTransient ? kDownloadedNormal : font.Status;
  FontInfo info = font.Info;
  info.Request = kFontRequestNone;
  bool done = store.WriteDword(path + "Type", font.Type);
  done = store.WriteDword(path + "Status", status) && done;
  done = store.WriteBinary(path + "FontInfo", &info, sizeof(info)) ==
             static_cast<int32_t>(sizeof(info)) &&
         done;
  done = store.WriteByte(path + "Italic", font.Italic) && done;
  done = store.WriteDword(path + "Weight", font.Weight) && done;
  done = WriteFontText(store, path + "Face Name", font.FaceName) && done;
  done = store.WriteByte(path + "Character Set", font.CharacterSet) && done;
  if (!font.IsBitmap()) return done;
  done = store.WriteDword(path + "Point Size", font.PointSize) && done;
  done = store.WriteDword(path + "Scale Factor", font.ScaleFactor) && done;
  const OString table = path + "Encoding Table";
  if (font.EncodingTable.Count > 0) {
    return WriteEncodingTable(store, table, font.EncodingTable) && done;
  }
  // Another font's may lie there.
  return store.ForgetValue(table) && done;
}

}  // namespace

void DownloadedFontList::Load(PrinterModel* model) {
  ClearAll();
  if (!model) return;
  PrinterRegistry& store = model->GetStore();
  VerticalResolution = model->GetDefaultResolutionY();
  RotatesTextFreely = model->CanRotateTextAnyAngle();
  Enabled = ReadSwitch(store, "Enabled");
  AllowsMagnification = ReadSwitch(store, "Allow Magnifications");
  AlwaysUsesClosest = ReadSwitch(store, "Always Use Closest");
  // Nobody may write between the first font and the last.
  const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
  const int32_t total = CountEntries(store, kFonts);
  for (int32_t i = 1; i <= total; ++i) Append(Read(store, FontPath(i)).release());
}

bool DownloadedFontList::Save(PrinterModel* model) const {
  // Those behind the limit could not be read back.
  if (!model || GetCount() > kEntryLimit) return false;
  PrinterRegistry& store = model->GetStore();
  KeyStoreTransaction writing(store.GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!writing.IsOpen()) return false;
  bool done = true;
  int32_t count = 0;
  for (const DownloadedFont* font = GetFirst(); font; font = font->GetNext()) {
    done = Write(store, FontPath(++count), *font) && done;
  }
  done = store.WriteDword(kTotal, count) && done;
  return done && writing.Commit();
}

}  // namespace ostvt
