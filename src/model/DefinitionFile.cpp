#include "model/DefinitionFile.h"

#include "core/ArchiveReader.h"
#include "model/DefinitionText.h"
#include "model/StringMap.h"

namespace ostvt {

DefinitionFile::~DefinitionFile() {
  for (int32_t i = 0; i < Values.Count; ++i) delete static_cast<StringMap*>(Values[i]);
  for (int32_t i = 0; i < Texts.Values.Count; ++i) {
    delete static_cast<DefinitionText*>(Texts.Values[i]);
  }
}

void DefinitionFile::SelectSection(const OString& path) {
  if (path.IsEmpty()) return;
  const int colon = path.Find(':');
  if (colon >= 0) {
    FileName = path.Left(colon);
    SectionName = path.Mid(colon + 1);
  } else {
    SectionName = path;
  }
  Current = nullptr;
}

// A member that is missing, damaged or too large is kept as an empty text.
DefinitionText* DefinitionFile::CurrentText() {
  const int32_t known = Texts.Find(FileName);
  if (known >= 0) return static_cast<DefinitionText*>(Texts.Values[known]);
  uint32_t size = 0;
  const uint8_t* data =
      Archive ? Archive->GetMemberData(FileName + ".d", &size, kLargestDefinition) : nullptr;
  auto* text = new DefinitionText(reinterpret_cast<const char*>(data), data ? size : 0);
  Texts.Set(FileName, text);
  return text;
}

StringMap* DefinitionFile::CurrentSection() {
  if (Current) return Current;
  const OString key = FileName + ":" + SectionName;
  const int32_t known = Find(key);
  if (known >= 0) {
    Current = static_cast<StringMap*>(Values[known]);
  } else {
    Current = new StringMap;
    CurrentText()->ReadSection(SectionName, Current);
    Set(key, Current);
  }
  return Current;
}

const OString* DefinitionFile::FindValue(const OString& key) {
  return CurrentSection()->FindString(key);
}

OString DefinitionFile::GetString(const OString& key, const OString& defaultValue) {
  const OString* value = FindValue(key);
  return value ? *value : defaultValue;
}

bool DefinitionFile::HasKey(const OString& key) {
  const OString* value = FindValue(key);
  return value && !value->IsEmpty();
}

bool DefinitionFile::ParseBool(const OString& value, bool defaultValue) {
  if (value.IsEmpty()) return defaultValue;
  for (const char* word : {"true", "yes", "on", "1"}) {
    if (value.CompareNoCase(word) == 0) return true;
  }
  for (const char* word : {"false", "no", "off", "0"}) {
    if (value.CompareNoCase(word) == 0) return false;
  }
  return defaultValue;
}

bool DefinitionFile::GetBool(const OString& key, bool defaultValue) {
  return ParseBool(GetString(key), defaultValue);
}

int32_t DefinitionFile::GetInt(const OString& key, int32_t defaultValue) {
  const OString value = GetString(key);
  return value.IsEmpty() ? defaultValue : value.ToInt();
}

void DefinitionFile::GetList(const OString& key, OStringArray* array) {
  array->Split(GetString(key), ",");
}

bool DefinitionFile::Contains(const OStringArray& list, const OString& item) {
  for (int32_t i = 0; i < list.Count; ++i) {
    if (list[i].CompareNoCase(item) == 0) return true;
  }
  return false;
}

bool DefinitionFile::ListContains(const OString& key, const OString& item) {
  OStringArray list;
  GetList(key, &list);
  return Contains(list, item);
}

void DefinitionFile::GetKeys(OStringArray* array) { array->Copy(CurrentSection()->Names); }

}  // namespace ostvt
