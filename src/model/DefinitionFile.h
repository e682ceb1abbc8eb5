// The sections of a set of definition files, read from an archive and parsed on first use.
//
// A map of StringMap objects by "file:section". A missing archive, member, section or key gives the
// default of the read, silently; what was found missing is not looked for again. One thread at a
// time.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/OStringArray.h"
#include "model/NameMap.h"

namespace ostvt {

class ArchiveReader;
class DefinitionText;
class StringMap;

class DefinitionFile : public NameMap {
 public:
  DefinitionFile() = default;
  ~DefinitionFile() override;

  // "file:section", or "section" of the current file. "" changes nothing.
  void SelectSection(const OString& path);

  // All of these read the current section.
  // A key that is there with no value gives "".
  OString GetString(const OString& key, const OString& defaultValue = OString());
  // The key has a value that is not empty.
  bool HasKey(const OString& key);
  // "true", "yes", "on", "1" and their opposites, case ignored; all else gives the default.
  bool GetBool(const OString& key, bool defaultValue = false);
  // An empty value gives the default; text that is no number gives 0.
  int32_t GetInt(const OString& key, int32_t defaultValue = 0);
  // Replaces the content by the elements between commas, not trimmed.
  void GetList(const OString& key, OStringArray* array);
  // Case is ignored.
  bool ListContains(const OString& key, const OString& item);
  // The section's key names, in the order of the map.
  void GetKeys(OStringArray* array);

  static bool ParseBool(const OString& value, bool defaultValue);
  static bool Contains(const OStringArray& list, const OString& item);  // case ignored

 protected:
  const OString* FindValue(const OString& key);  // null if there is no such key
  OString FileName;
  OString SectionName;
  ArchiveReader* Archive = nullptr;  // not owned

 private:
  StringMap* CurrentSection();
  DefinitionText* CurrentText();

  NameMap Texts;                 // a DefinitionText for each file that was asked for
  StringMap* Current = nullptr;  // the section in force; null until it is read
};

}  // namespace ostvt
