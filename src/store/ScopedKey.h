// An open key that is closed at the end of its scope.
#pragma once

#include "platform/KeyStore.h"

namespace ostvt {

class ScopedKey {
 public:
  explicit ScopedKey(platform::KeyHandle key) : Key(key) {}
  ~ScopedKey() { platform::CloseKey(Key); }
  ScopedKey(const ScopedKey&) = delete;
  ScopedKey& operator=(const ScopedKey&) = delete;
  platform::KeyHandle Get() const { return Key; }

 private:
  platform::KeyHandle Key;
};

}  // namespace ostvt
