#include "core/Base64.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt {
namespace {

// The text is followed by a guard, which no call may touch.
std::string Encode(const std::string& bytes) {
  std::string out((bytes.size() + 2) / 3 * 4 + 4, '#');
  uint32_t length = 0xDEADBEEF;
  Base64::Encode(bytes.data(), static_cast<uint32_t>(bytes.size()), out.data(), &length);
  EXPECT_EQ("####", out.substr(out.size() - 4));
  EXPECT_EQ((bytes.size() + 2) / 3 * 4, length);
  return out.substr(0, length);
}

std::string Decode(const std::string& text) {
  std::string out((text.size() + 3) / 4 * 3 + 4, '#');
  uint32_t length = 0xDEADBEEF;
  Base64::Decode(text.data(), static_cast<uint32_t>(text.size()), out.data(), &length);
  EXPECT_EQ("####", out.substr(out.size() - 4));
  EXPECT_GE(out.size() - 4, length);
  return out.substr(0, length);
}

TEST(Base64, PadsTheLastGroup) {
  EXPECT_EQ("TQ==", Encode("M"));
  EXPECT_EQ("TWE=", Encode("Ma"));
  EXPECT_EQ("TWFu", Encode("Man"));
  EXPECT_EQ("TWFuTQ==", Encode("ManM"));
}

// RFC 4648, section 10.
TEST(Base64, AgreesWithTheStandardsExamples) {
  const char* const pairs[][2] = {{"", ""},
                                  {"f", "Zg=="},
                                  {"fo", "Zm8="},
                                  {"foo", "Zm9v"},
                                  {"foob", "Zm9vYg=="},
                                  {"fooba", "Zm9vYmE="},
                                  {"foobar", "Zm9vYmFy"}};
  for (const auto& pair : pairs) {
    EXPECT_EQ(pair[1], Encode(pair[0]));
    EXPECT_EQ(pair[0], Decode(pair[1]));
  }
}

TEST(Base64, UsesAllOfTheAlphabetInOrder) {
  std::string bytes;
  for (uint32_t i = 0; i < 64; i += 4) {
    const uint32_t group = i << 18 | (i + 1) << 12 | (i + 2) << 6 | (i + 3);
    bytes +=
        {static_cast<char>(group >> 16), static_cast<char>(group >> 8), static_cast<char>(group)};
  }
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  EXPECT_EQ(alphabet, Encode(bytes));
  EXPECT_EQ(bytes, Decode(alphabet));
}

TEST(Base64, WritesNoLineBreaks) {
  const std::string text = Encode(std::string(300, 'x'));
  EXPECT_EQ(400u, text.size());
  EXPECT_EQ(std::string::npos, text.find_first_of("\r\n"));
}

TEST(Base64, LengthZeroGivesLengthZero) {
  uint32_t length = 7;
  Base64::Encode(nullptr, 0, nullptr, &length);
  EXPECT_EQ(0u, length);
  length = 7;
  Base64::Decode(nullptr, 0, nullptr, &length);
  EXPECT_EQ(0u, length);
}

TEST(Base64, InputWithoutA32BitTextLengthGivesNothing) {
  char out[4] = {'#', '#', '#', '#'};
  uint32_t length = 7;
  Base64::Encode("x", 0xC0000000, out, &length);
  EXPECT_EQ(0u, length);
  EXPECT_EQ('#', out[0]);
}

TEST(Base64, DecodingStopsAtThePadding) {
  EXPECT_EQ("M", Decode("TQ=="));
  EXPECT_EQ("Man", Decode("TWFu===="));
  EXPECT_EQ("M", Decode("TQ==TWFu"));
  EXPECT_EQ("Ma", Decode("TWE=TWFu"));
}

TEST(Base64, PaddingInTheFirstTwoPositionsMakesNoByte) {
  EXPECT_EQ("Man", Decode("TWFu=WFu"));
  EXPECT_EQ("Man", Decode("TWFuT=Fu"));
  EXPECT_EQ("", Decode("===="));
}

TEST(Base64, LastGroupMayBeShort) {
  EXPECT_EQ("Man", Decode("TWFuT"));
  EXPECT_EQ("ManM", Decode("TWFuTQ"));
  EXPECT_EQ("ManMa", Decode("TWFuTWE"));
}

TEST(Base64, CharacterOutsideTheAlphabetCountsAsZero) {
  EXPECT_EQ(Decode("TAFu"), Decode("T*Fu"));
  EXPECT_EQ(Decode("AAAA"), Decode("\xFF\x80~-"));
  EXPECT_EQ(std::string("\0\0\0", 3), Decode(std::string("\0\0\0\0", 4)));
}

TEST(Base64, WhiteSpaceIsNotSkipped) {
  EXPECT_EQ(Decode("TWFuAAATQ=="), Decode("TWFu\r\n TQ=="));
  EXPECT_NE("ManM", Decode("TWFu\r\nTQ=="));
}

}  // namespace
}  // namespace ostvt
