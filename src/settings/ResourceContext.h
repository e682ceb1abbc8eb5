// What a language module holds, by number.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class ResourceContext {
 public:
  virtual ~ResourceContext() = default;
  // Empty if there is none.
  virtual OString GetString(int32_t number) = 0;
};

}  // namespace ostvt
