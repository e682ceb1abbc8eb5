#include "platform/linux/Utf8.h"

#include <unicode/ustring.h>

#include <limits>

namespace ostvt::platform {
namespace {

constexpr UChar32 kReplacement = 0xFFFD;
// A unit makes at most three bytes, so that no size overflows an int.
constexpr size_t kLongest = std::numeric_limits<int32_t>::max() / 4;

}  // namespace

std::u16string FromUtf8(std::string_view text) {
  text = text.substr(0, kLongest);
  std::u16string result(text.size(), u'\0');  // a byte makes at most one unit
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8WithSub(result.data(), static_cast<int32_t>(result.size()), &length, text.data(),
                       static_cast<int32_t>(text.size()), kReplacement, nullptr, &status);
  result.resize(U_SUCCESS(status) ? static_cast<size_t>(length) : 0);
  return result;
}

std::string ToUtf8(std::u16string_view text) {
  text = text.substr(0, kLongest);
  std::string result(text.size() * 3, '\0');
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strToUTF8WithSub(result.data(), static_cast<int32_t>(result.size()), &length, text.data(),
                     static_cast<int32_t>(text.size()), kReplacement, nullptr, &status);
  result.resize(U_SUCCESS(status) ? static_cast<size_t>(length) : 0);
  return result;
}

}  // namespace ostvt::platform
