// The texts of the user's language, by number.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class MessageTexts {
 public:
  virtual ~MessageTexts() = default;
  // Empty if there is none.
  virtual OString GetMessage(int32_t number) const = 0;
};

}  // namespace ostvt
