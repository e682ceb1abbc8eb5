#include "core/LittleEndian.h"

#include <gtest/gtest.h>

#include <vector>

namespace ostvt {
namespace {

TEST(LittleEndian, LeastSignificantByteIsFirst) {
  const uint8_t bytes[] = {0x01, 0xF2, 0x83, 0xF4, 0x85};
  EXPECT_EQ(0xF201, ReadLittleWord(bytes));
  EXPECT_EQ(0x83F2, ReadLittleWord(bytes + 1));
  EXPECT_EQ(0xF483F201u, ReadLittleDword(bytes));
  EXPECT_EQ(0x85F483F2u, ReadLittleDword(bytes + 1));
}

TEST(LittleEndian, ItsOwnBytesAreWrittenAndNoOthers) {
  std::vector<uint8_t> bytes(6, 0xCD);
  WriteLittleWord(bytes.data() + 1, 0xF201);
  EXPECT_EQ((std::vector<uint8_t>{0xCD, 0x01, 0xF2, 0xCD, 0xCD, 0xCD}), bytes);
  WriteLittleDword(bytes.data() + 1, 0xF483F2A1);
  EXPECT_EQ((std::vector<uint8_t>{0xCD, 0xA1, 0xF2, 0x83, 0xF4, 0xCD}), bytes);
}

}  // namespace
}  // namespace ostvt
