// Lists out of blocks that lie, and back: byte 0 picks the mode, the form and the code page.
#include <cstdint>
#include <cstdlib>

#include "core/OStringArray.h"

namespace {

using ostvt::BlockMode;

void Require(bool condition) {
  if (!condition) abort();
}

// What was read from a written block is what was written, where the mode can hold it.
void CheckRoundTrip(const ostvt::OStringArray& list, BlockMode mode, bool wide, uint32_t codePage) {
  ostvt::Buffer block;
  ostvt::OStringArray again;
  if (wide) {
    list.JoinBlockWide(&block, mode);
    again.SplitBlockWide(block.Data, block.Size, mode);
  } else {
    list.JoinBlock(&block, mode, codePage);
    again.SplitBlock(block.Data, block.Size, mode, codePage);
  }
  if (mode != BlockMode::kCounted || block.Size == 0) return;
  Require(again.Count == list.Count);
  if (!wide) return;
  for (int32_t i = 0; i < list.Count; ++i) Require(list[i] == again[i]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  constexpr uint32_t kPages[] = {0, ostvt::kCodePageUtf8, 932, 1361};
  auto mode = static_cast<BlockMode>(data[0] & 3);
  bool wide = (data[0] & 4) != 0;
  uint32_t codePage = kPages[data[0] >> 3 & 3];
  ostvt::OStringArray list;
  if (wide) {
    list.SplitBlockWide(data + 1, static_cast<uint32_t>(size - 1), mode);
  } else {
    list.SplitBlock(data + 1, static_cast<uint32_t>(size - 1), mode, codePage);
  }
  CheckRoundTrip(list, mode, wide, codePage);
  return 0;
}
