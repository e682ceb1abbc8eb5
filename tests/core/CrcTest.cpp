#include "core/Crc.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt {
namespace {

const std::string kCheck = "123456789";

uint32_t Crc32Of(const std::string& data, uint32_t seed = 0) {
  return CRC32(data.data(), static_cast<uint32_t>(data.size()), seed);
}
uint16_t Crc16Of(const std::string& data, uint16_t seed) {
  return CRC16(data.data(), static_cast<uint32_t>(data.size()), seed);
}

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes.push_back(static_cast<char>(i * 7 + i / 256));
  return bytes;
}

// Bit by bit from the polynomials, without a table.
uint32_t BitwiseCrc32(const std::string& data, uint32_t seed) {
  uint32_t c = ~seed;
  for (char character : data) {
    c ^= static_cast<uint8_t>(character);
    for (int bit = 0; bit < 8; ++bit) c = c & 1 ? c >> 1 ^ 0xEDB88320 : c >> 1;
  }
  return ~c;
}
uint16_t BitwiseCrc16(const std::string& data, uint16_t seed) {
  uint32_t c = seed;
  for (char character : data) {
    c ^= static_cast<uint32_t>(static_cast<uint8_t>(character)) << 8;
    for (int bit = 0; bit < 8; ++bit) c = (c & 0x8000 ? c << 1 ^ 0x1021 : c << 1) & 0xFFFF;
  }
  return static_cast<uint16_t>(c);
}

TEST(Crc32, CheckValue) { EXPECT_EQ(0xCBF43926u, Crc32Of(kCheck)); }

TEST(Crc32, SplitRunGivesTheSameValue) {
  for (size_t cut = 0; cut <= kCheck.size(); ++cut) {
    EXPECT_EQ(0xCBF43926u, Crc32Of(kCheck.substr(cut), Crc32Of(kCheck.substr(0, cut))));
  }
}

TEST(Crc32, NoBytesGiveTheSeed) {
  EXPECT_EQ(0x12345678u, CRC32("x", 0, 0x12345678));
  EXPECT_EQ(0x12345678u, CRC32(nullptr, 0, 0x12345678));
  EXPECT_EQ(0u, CRC32("", 0, 0));
}

TEST(Crc32, InvertsTheSeedAndTheResult) {
  const std::string bytes = AllBytes();
  for (uint32_t seed : {0u, 1u, 0xFFFFFFFFu, 0x89ABCDEFu}) {
    EXPECT_EQ(BitwiseCrc32(bytes, seed), Crc32Of(bytes, seed));
  }
}

TEST(Crc16, NoBytesGiveTheSeed) {
  EXPECT_EQ(0xFFFF, CRC16("", 0, 0xFFFF));
  EXPECT_EQ(0xFFFF, CRC16(nullptr, 0, 0xFFFF));
}

// The published check values of this polynomial for both usual seeds.
TEST(Crc16, CheckValues) {
  EXPECT_EQ(0x29B1, Crc16Of(kCheck, 0xFFFF));
  EXPECT_EQ(0x31C3, Crc16Of(kCheck, 0));
}

TEST(Crc16, SplitRunGivesTheSameValue) {
  EXPECT_EQ(0x29B1, Crc16Of(kCheck.substr(4), Crc16Of(kCheck.substr(0, 4), 0xFFFF)));
}

TEST(Crc16, FollowsThePolynomialForAllBytes) {
  const std::string bytes = AllBytes();
  for (const uint16_t seed : std::initializer_list<uint16_t>{0, 1, 0x8000, 0xFFFF}) {
    EXPECT_EQ(BitwiseCrc16(bytes, seed), Crc16Of(bytes, seed));
  }
}

}  // namespace
}  // namespace ostvt
