// Dialog templates from outside: the narrow form never leaves its room, is the same in every room
// as far as it goes, and begins with what the template says.
#include <cstdlib>
#include <cstring>
#include <memory>

#include "settings/NarrowTemplate.h"

namespace {

// No byte turns into more than two, and what a head lacks is at most this.
constexpr uint32_t kMostBesideTexts = 32;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const uint32_t length = static_cast<uint32_t>(size);
  const uint32_t needed = ostvt::MakeNarrowTemplate(data, length, nullptr, 0);
  if (needed > 2 * length + kMostBesideTexts) abort();
  if (needed == 0) return 0;
  // Allocations of just their size, so that the sanitizer sees every byte outside.
  const std::unique_ptr<uint8_t[]> whole(new uint8_t[needed]);
  if (ostvt::MakeNarrowTemplate(data, length, whole.get(), needed) != needed) abort();
  if (whole[4] != 0 || whole[needed - 1] != 0) abort();
  const bool isExtended = data[2] == 0xFF && data[3] == 0xFF;
  if (memcmp(whole.get(), data + (isExtended ? 12 : 0), 4) != 0) abort();
  const uint32_t room = needed * data[size - 1] / 256;
  const std::unique_ptr<uint8_t[]> part(new uint8_t[room]);
  if (ostvt::MakeNarrowTemplate(data, length, part.get(), room) != needed) abort();
  if (memcmp(whole.get(), part.get(), room) != 0) abort();
  return 0;
}
