// A NameMap whose values are texts of its own. Numbers are held as decimal text; an empty entry
// counts as absent. One thread at a time.
#pragma once

#include <cstdint>
#include <vector>

#include "core/OString.h"
#include "model/NameMap.h"

namespace ostvt {

class StringMap : public NameMap {
 public:
  StringMap() = default;
  ~StringMap() override;

  OString GetString(const OString& key, const OString& defaultValue) const;
  void SetString(const OString& key, const OString& value);
  int32_t GetInt(const OString& key, int32_t defaultValue) const;
  void SetInt(const OString& key, int32_t value);
  // True for any number but 0.
  bool GetBool(const OString& key, bool defaultValue) const;
  void SetBool(const OString& key, bool value);

  // The text itself, empty or not; null if there is no such key. Valid until the next change.
  const OString* FindString(const OString& key) const;
  const OString* FindString(const OString& key, uint32_t hash) const;
  void SetString(const OString& key, uint32_t hash, const OString& value);
  // Makes room for `count` more keys.
  void ExpectMore(int32_t count);

 private:
  using NameMap::Set;  // would take any pointer for a text of this map

  OString* NewValue();

  // The values lie in blocks of this many, since each is as small as a pointer.
  std::vector<OString*> Blocks;
  int32_t BlockSize = 0;
  int32_t FreeInBlock = 0;
};

}  // namespace ostvt
