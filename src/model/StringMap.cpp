#include "model/StringMap.h"

namespace ostvt {
namespace {

constexpr int32_t kValuesAtATime = 16;

}  // namespace

StringMap::~StringMap() {
  for (OString* block : Blocks) delete[] block;
}

void StringMap::ExpectMore(int32_t count) {
  if (count <= FreeInBlock) return;
  Reserve(count);
  BlockSize = FreeInBlock = count;
  Blocks.push_back(new OString[static_cast<size_t>(count)]);
}

OString* StringMap::NewValue() {
  if (FreeInBlock == 0) ExpectMore(kValuesAtATime);
  return Blocks.back() + (BlockSize - FreeInBlock--);
}

const OString* StringMap::FindString(const OString& key) const {
  return FindString(key, HashOf(key));
}

const OString* StringMap::FindString(const OString& key, uint32_t hash) const {
  const int32_t index = Find(key, hash);
  return index < 0 ? nullptr : static_cast<const OString*>(Values[index]);
}

OString StringMap::GetString(const OString& key, const OString& defaultValue) const {
  const OString* value = FindString(key);
  return !value || value->IsEmpty() ? defaultValue : *value;
}

void StringMap::SetString(const OString& key, const OString& value) {
  SetString(key, HashOf(key), value);
}

void StringMap::SetString(const OString& key, uint32_t hash, const OString& value) {
  const int32_t index = Find(key, hash);
  if (index >= 0) {
    *static_cast<OString*>(Values[index]) = value;
  } else {
    OString* added = NewValue();
    *added = value;
    Insert(key, hash, added);
  }
}

int32_t StringMap::GetInt(const OString& key, int32_t defaultValue) const {
  const OString* value = FindString(key);
  return !value || value->IsEmpty() ? defaultValue : value->ToInt();
}

void StringMap::SetInt(const OString& key, int32_t value) {
  OString text;
  text.AppendInt(value);
  SetString(key, text);
}

bool StringMap::GetBool(const OString& key, bool defaultValue) const {
  return GetInt(key, defaultValue ? 1 : 0) != 0;
}

void StringMap::SetBool(const OString& key, bool value) { SetInt(key, value ? 1 : 0); }

}  // namespace ostvt
