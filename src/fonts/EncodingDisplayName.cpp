#include "fonts/EncodingDisplayName.h"

#include <algorithm>
#include <iterator>

#include "core/OStringArray.h"
#include "fonts/MessageTexts.h"
#include "model/EncodingName.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

constexpr uint16_t kJapaneseMessage = 1275;
constexpr uint16_t kCustomMessage = 2225;

struct Row {
  uint16_t Number;
  uint16_t Message;
  const char* Bracket;
};

// Each table ascends by its numbers.
constexpr Row kCodePages[] = {
    {437, 1241, "OEM"},
    {737, 1244, "OEM"},
    {775, 1248, "OEM"},
    {850, 1241, "OEM"},
    {852, 1242, "OEM"},
    {855, 1243, "OEM"},
    {857, 1245, "OEM"},
    {858, 1241, "OEM"},
    {860, 1259, "OEM"},
    {861, 1258, "OEM"},
    {862, 1246, "OEM"},
    {863, 1260, "OEM"},
    {864, 1247, "OEM"},
    {865, 1261, "OEM"},
    {866, 1300, "OEM"},
    {869, 1263, "OEM"},
    {874, 1250, "OEM"},  // a Windows page, but printers know it as a DOS one
    {932, 1251, "ANSI, ShiftJIS"},
    {936, 1252, "ANSI, GB2312"},
    {949, 1253, "ANSI"},
    {950, 1254, "ANSI, Big5"},
    {1250, 1242, "ANSI"},
    {1251, 1243, "ANSI"},
    {1252, 1241, "ANSI"},
    {1253, 1244, "ANSI"},
    {1254, 1245, "ANSI"},
    {1255, 1246, "ANSI"},
    {1256, 1247, "ANSI"},
    {1257, 1248, "ANSI"},
    {1258, 1249, "ANSI"},
};
constexpr Row kIsoParts[] = {
    {1, 1241, "ISO"},  {2, 1316, "ISO"},  {3, 1317, "ISO"},  {4, 1318, "ISO"},  {5, 1243, "ISO"},
    {6, 1294, "ISO"},  {7, 1291, "ISO"},  {8, 1293, "ISO"},  {9, 1292, "ISO"},  {10, 1261, "ISO"},
    {11, 1289, "ISO"}, {13, 1248, "ISO"}, {14, 1262, "ISO"}, {15, 1241, "ISO"},
};
constexpr Row kIsoNumbers[] = {
    {4, 1257, "7-bit"},  {6, 1256, "7-bit"},  {11, 1282, "7-bit"}, {15, 1277, "7-bit"},
    {17, 1272, "7-bit"}, {21, 1273, "7-bit"}, {60, 1283, "7-bit"}, {69, 1274, "7-bit"},
};

struct Language {
  const char* Name;  // as definitions spell it
  uint16_t Message;
};

constexpr Language kLanguages[] = {
    {"Arabic", 1247},
    {"Cyrillic", 1243},
    {"Czech", 1286},
    {"Danish", 1281},
    {"Dutch", 1284},
    {"English", 1271},
    {"Estonian", 1295},
    {"Finish", 1280},
    {"French", 1274},
    {"German", 1273},
    {"Greek", 1244},
    {"Hebrew", 1246},
    {"Hungarian", 1290},
    {"Italian", 1277},
    {"Japanese", 1275},
    {"Korean", 1288},
    {"Norwegian", 1283},
    {"Polish", 1287},
    {"Simplified Chinese", 1252},
    {"Spanish", 1272},
    {"Swedish", 1282},
    {"Thai", 1289},
    {"Traditional Chinese", 1254},
    {"Turkish", 1245},
    {"Western", 1241},
};

struct CharsetRow {
  uint8_t Charset;
  uint16_t Message;
};

constexpr CharsetRow kCharsets[] = {
    {222, 1250}, {128, 1251}, {134, 1252}, {129, 1253}, {136, 1254}, {238, 1242}, {204, 1243},
    {0, 1241},   {161, 1244}, {162, 1245}, {177, 1246}, {178, 1247}, {186, 1248}, {163, 1249},
};

template <size_t N>
const Row* FindRow(const Row (&rows)[N], uint32_t number) {
  const Row* row = std::lower_bound(std::begin(rows), std::end(rows), number,
                                    [](const Row& a, uint32_t b) { return a.Number < b; });
  return row != std::end(rows) && row->Number == number ? row : nullptr;
}

const Row* FindRow(const EncodingName& name) {
  switch (name.Kind) {
    case EncodingKind::kCodePage:
      return FindRow(kCodePages, name.Number);
    case EncodingKind::kIsoPart:
      return FindRow(kIsoParts, name.Number);
    case EncodingKind::kIsoNumber:
      return FindRow(kIsoNumbers, name.Number);
    default:
      return nullptr;
  }
}

// The first item of a description is a language, in the user's words where they are known.
OString DescriptionText(const OString& description, const MessageTexts& texts) {
  const int separator = description.Find(';');
  const OString first = separator < 0 ? description : description.Left(separator);
  const OString rest = separator < 0 ? OString() : description.Mid(separator);
  for (const Language& language : kLanguages) {
    if (first == language.Name) return texts.GetMessage(language.Message) + rest;
  }
  return description;
}

}  // namespace

OString EncodingDisplayName(const OString& name, PrinterModel* model, const MessageTexts& texts) {
  const EncodingName parsed = ParseEncodingName(name);
  if (const Row* row = FindRow(parsed)) {
    return texts.GetMessage(row->Message) + " (" + row->Bracket + ")";
  }
  if (parsed.Kind == EncodingKind::kUtf8) return "UTF-8 (Unicode)";
  if (parsed.Kind == EncodingKind::kUtf16) return "UTF-16 (Unicode)";
  if (name.CompareNoCase("JIS") == 0) return texts.GetMessage(kJapaneseMessage) + " (JIS)";
  if (!model) return OString();
  return DescriptionText(model->GetEncodingDescription(name), texts);
}

uint16_t MessageOfCodePage(uint32_t codePage) {
  const Row* row = FindRow(kCodePages, codePage);
  return row ? row->Message : uint16_t{0};
}

OString CharacterSetDisplayName(uint8_t charset, const MessageTexts& texts) {
  for (const CharsetRow& row : kCharsets) {
    if (row.Charset == charset) return texts.GetMessage(row.Message);
  }
  return OString();
}

OString CustomCharacterSetDisplayName(const OString& name, const MessageTexts& texts) {
  const OString mark = " [" + texts.GetMessage(kCustomMessage) + "]";
  return name.Right(mark.Length()) == mark ? name : name + mark;
}

}  // namespace ostvt
