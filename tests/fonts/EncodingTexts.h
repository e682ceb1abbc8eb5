// Texts of the user's language that show their numbers.
#pragma once

#include <string>

#include "fonts/MessageTexts.h"

namespace ostvt::test {

// "#1241" for message 1241.
struct NumberTexts : MessageTexts {
  OString GetMessage(int32_t number) const override {
    return ("#" + std::to_string(number)).c_str();
  }
};

}  // namespace ostvt::test
