// The encodings that a model's fonts are addressed in.
#include "model/EncodingName.h"
#include "model/EncodingOrder.h"
#include "model/FontGroupInfo.h"
#include "model/ModelDefinition.h"
#include "model/PrinterModel.h"
#include "platform/CodePages.h"

namespace ostvt {
namespace {

constexpr char kClassesKey[] = ".Classes";
constexpr char kPreferredKey[] = "Encodings.Preferred.";
constexpr uint8_t kUnicodeCharset = 1;

// The classes of encodings that the model's fonts ask for.
void ListClasses(PrinterModel* model, OStringArray* classes) {
  OStringArray groups;
  model->GetFontGroups(&groups);
  for (int32_t i = 0; i < groups.Count; ++i) {
    FontGroupInfo info;
    if (!model->GetFontGroupInfo(groups[i], &info) || info.EncodingClass.IsEmpty()) continue;
    if (!DefinitionFile::Contains(*classes, info.EncodingClass)) classes->Add(info.EncodingClass);
  }
  ModelDefinition& definition = model->GetDefinition();
  definition.SelectContext(Context::kFont);
  for (const char* key : {"Encodings.TrueType.Class", "Encodings.TTSymbolFont.Class"}) {
    const OString name = definition.GetStringEx(key);
    if (!name.IsEmpty()) classes->Add(name);
  }
}

// The keys that tell an encoding's classes.
void ListClassesKeys(ModelDefinition& definition, OStringArray* keys) {
  definition.SelectContext(Context::kFont);
  // Without this link the font section would stay in force.
  if (definition.GetOverride("Encodings").IsEmpty()) return;
  definition.SelectContext(Context::kEncodings);
  OStringArray all;
  definition.GetKeysEx(&all);
  for (int32_t i = 0; i < all.Count; ++i) {
    if (all[i].Find(kClassesKey) >= 0) keys->Add(all[i]);
  }
}

bool SharesClass(const OString& value, const OStringArray& classes) {
  OStringArray items;
  items.Split(value, ";");
  for (int32_t i = 0; i < items.Count; ++i) {
    if (DefinitionFile::Contains(classes, items[i])) return true;
  }
  return false;
}

// The encodings that share a class with the model's fonts, in no order that means anything.
void ListRawEncodings(PrinterModel* model, OStringArray* raw) {
  OStringArray classes;
  ListClasses(model, &classes);
  ModelDefinition& definition = model->GetDefinition();
  ListClassesKeys(definition, raw);
  for (int32_t i = raw->Count - 1; i >= 0; --i) {
    OString& key = (*raw)[i];
    if (SharesClass(definition.GetEncodingDescription(key), classes)) {
      key.Truncate(key.Find('.'));
    } else {
      raw->RemoveAt(i);
    }
  }
}

void ListPreferred(ModelDefinition& definition, const OStringArray& raw, uint32_t ansiPage,
                   OStringArray* preferred) {
  definition.SelectContext(Context::kFont);
  definition.GetListEx(kPreferredKey + OString::FromInt(static_cast<int32_t>(ansiPage), 1),
                       preferred);
  if (preferred->Count > 0) return;
  const OString standard = definition.GetStringEx(OString(kPreferredKey) + "Default");
  if (standard.CompareNoCase("ANSI") == 0) {
    ListAnsiEncodings(raw, ansiPage, preferred);
  } else {
    preferred->Split(standard, ";");
  }
}

}  // namespace

void PrinterModel::GetEncodings(OStringArray* list) {
  if (!EncodingsLoaded) RebuildEncodings();
  list->Copy(Encodings);
}

void PrinterModel::RebuildEncodings() {
  Encodings.SetSize(0);
  Charsets.SetSize(0);
  EncodingsLoaded = false;
  OStringArray raw;
  ListRawEncodings(this, &raw);
  if (raw.Count == 0) return;
  const SystemCodePages system = {platform::AnsiCodePage(), platform::OemCodePage()};
  OStringArray preferred;
  ListPreferred(*Definition, raw, system.Ansi, &preferred);
  OrderEncodings(raw, preferred, system, &Encodings);
  EncodingsLoaded = true;
}

void PrinterModel::GetCharacterSets(ByteArray* array) {
  if (Charsets.Count == 0) {
    OStringArray encodings;
    GetEncodings(&encodings);
    CharsetsOfEncodings(encodings, &Charsets);
  }
  array->Copy(Charsets);
}

bool PrinterModel::IsUnicodeModel() {
  ByteArray charsets;
  GetCharacterSets(&charsets);
  return charsets.Count == 1 && charsets[0] == kUnicodeCharset;
}

}  // namespace ostvt
