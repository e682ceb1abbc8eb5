#include "fonts/NameIndex.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

// Names that are found by their places, as the tables do it.
class NameIndexTest : public ::testing::Test {
 protected:
  void Add(const OString& name) {
    Names.push_back(name);
    Index.Add(name);
  }
  int32_t Find(const OString& name) {
    return Index.Find(name, [&](int32_t place) {
      ++Asked;
      return Names[static_cast<size_t>(place)].CompareNoCase(name) == 0;
    });
  }

  std::vector<OString> Names;
  NameIndex Index;
  int Asked = 0;
};

TEST_F(NameIndexTest, EmptyIndexFindsNothing) {
  EXPECT_EQ(-1, Find("A"));
  EXPECT_EQ(0, Asked);
}

TEST_F(NameIndexTest, CaseOfAsciiLettersAloneDoesNotCount) {
  Add("Label");
  Add(u"\u00C4");
  EXPECT_EQ(0, Find("lABEL"));
  EXPECT_EQ(1, Find(u"\u00C4"));
  EXPECT_EQ(-1, Find(u"\u00E4"));
}

TEST_F(NameIndexTest, FirstOfOneNameIsFound) {
  for (int i = 0; i < 300; ++i) Add(OString("Other") + OString::FromInt(i, 1));
  Add("A");
  Add("a");
  for (int i = 0; i < 300; ++i) Add(OString("More") + OString::FromInt(i, 1));
  EXPECT_EQ(300, Find("a"));
}

TEST_F(NameIndexTest, PlaceThatIsAnothersNowIsPassedOver) {
  Add("A");
  Add("A");
  Names[0] = "B";
  EXPECT_EQ(1, Find("A"));
}

TEST_F(NameIndexTest, FewAreAskedHoweverManyThereAre) {
  for (int i = 0; i < 20000; ++i) Add(OString("Label ") + OString::FromInt(i, 1));
  for (int i = 0; i < 20000; ++i) ASSERT_EQ(i, Find(OString("LABEL ") + OString::FromInt(i, 1)));
  EXPECT_LT(Asked, 21000);
}

TEST_F(NameIndexTest, ClearedIndexBeginsAtPlaceZero) {
  Add("A");
  Index.Clear();
  Names.clear();
  EXPECT_EQ(-1, Find("A"));
  Add("B");
  EXPECT_EQ(0, Find("B"));
}

}  // namespace
}  // namespace ostvt::test
