#include "core/PathName.h"

#include <gtest/gtest.h>

#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

TEST(NameOfPath, EitherSeparatorEndsADirectory) {
  EXPECT_STREQ("label.txt", NameOfPath("/home/me/label.txt").GetNarrow());
  EXPECT_STREQ("label.txt", NameOfPath("C:\\me\\label.txt").GetNarrow());
  EXPECT_STREQ("label.txt", NameOfPath("C:\\me/label.txt").GetNarrow());
  EXPECT_STREQ("label.txt", NameOfPath("/me\\label.txt").GetNarrow());
  EXPECT_EQ(u"\u0416.d", WideOf(NameOfPath(u"/x/\u0416.d")));
}

TEST(NameOfPath, PathWithoutASeparatorIsAName) {
  EXPECT_STREQ("label.txt", NameOfPath("label.txt").GetNarrow());
  EXPECT_TRUE(NameOfPath("").IsEmpty());
}

TEST(NameOfPath, DirectoryHasNone) { EXPECT_TRUE(NameOfPath("/home/me/").IsEmpty()); }

}  // namespace
}  // namespace ostvt
