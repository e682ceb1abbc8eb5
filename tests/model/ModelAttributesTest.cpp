#include "model/ModelAttributes.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

std::string Attribute(const char* line, const char* name) {
  return GetAttribute(line, name).GetNarrow();
}

bool Matches(const char* line, const char* modelName = "Ostrel D4-203") {
  return MatchesModelAttributes(line, modelName, "ost");
}

TEST(GetAttribute, ValueLiesBetweenTheNextTwoQuotes) {
  EXPECT_EQ("A*;B", Attribute("<stock model='A*;B' driver='ost'>", "model"));
  EXPECT_EQ("ost", Attribute("<stock model='A*;B' driver='ost'>", "driver"));
  EXPECT_EQ("", Attribute("<stock model='' driver='ost'>", "model"));
}

TEST(GetAttribute, MissingPartsGiveNothing) {
  EXPECT_EQ("", Attribute("<stock>", "model"));
  EXPECT_EQ("", Attribute("<stock model>", "model"));
  EXPECT_EQ("", Attribute("<stock model=>", "model"));
  EXPECT_EQ("", Attribute("<stock model='A>", "model"));
  EXPECT_EQ("", Attribute("<stock model=\"A\">", "model"));
  EXPECT_EQ("", Attribute("", "model"));
  EXPECT_EQ("", Attribute("<stock model='A'>", ""));
}

TEST(GetAttribute, NameStandsBehindABlankAndBeforeAnEqualsSign) {
  EXPECT_EQ("B", Attribute("<font name='model' model='B'>", "model"));
  EXPECT_EQ("B", Attribute("<font submodel='A' model='B'>", "model"));
  EXPECT_EQ("B", Attribute("<font models='A' model='B'>", "model"));
  EXPECT_EQ("", Attribute("model='A'", "model"));
  EXPECT_EQ("A", Attribute(" model='A'", "model"));
}

TEST(GetAttribute, BlanksMayStandAroundTheEqualsSign) {
  EXPECT_EQ("A", Attribute("<stock model =\t'A'>", "model"));
  EXPECT_EQ("A", Attribute("<stock\tmodel = 'A'>", "model"));
  EXPECT_EQ(" A ", Attribute("<stock model=' A '>", "model"));
}

TEST(GetAttribute, NameIsExact) { EXPECT_EQ("", Attribute("<stock Model='A'>", "model")); }

TEST(GetAttribute, WideTextSurvives) {
  EXPECT_EQ(0, GetAttribute(u"<stock model='\u6807\u7B7E'>", "model").Compare(u"\u6807\u7B7E"));
}

TEST(MatchesModelAttributes, StockLineWithoutAttributesMatchesEveryModel) {
  EXPECT_TRUE(Matches("<stock>"));
  EXPECT_TRUE(Matches("<stock model='' driver=''>"));
  EXPECT_TRUE(MatchesModelAttributes("<stock>", "", ""));
}

TEST(MatchesModelAttributes, ListOfPatternsMatchesModelsA1AndB) {
  EXPECT_TRUE(Matches("<stock model='A*;B'>", "a1"));
  EXPECT_TRUE(Matches("<stock model='A*;B'>", "B"));
  EXPECT_TRUE(Matches("<stock model='a*;b'>", "B"));
  EXPECT_FALSE(Matches("<stock model='A*;B'>", "B1"));
  EXPECT_FALSE(Matches("<stock model='A*;B'>", "C"));
}

TEST(MatchesModelAttributes, MembersAreTrimmed) {
  EXPECT_TRUE(Matches("<stock model=' X ;\tOstrel D4-203 '>"));
  EXPECT_FALSE(Matches("<stock model='X; Ostrel D4'>"));
  EXPECT_TRUE(Matches("<stock model='X; Ostrel D?-*'>"));
}

TEST(MatchesModelAttributes, DriverDoesNotCountBesideAModel) {
  EXPECT_TRUE(Matches("<stock model='Ostrel*' driver='xyz'>"));
  EXPECT_FALSE(Matches("<stock model='Other*' driver='ost'>"));
}

TEST(MatchesModelAttributes, DriverAloneIsTheFamily) {
  EXPECT_TRUE(Matches("<stock driver='OST'>"));
  EXPECT_TRUE(Matches("<stock driver='xyz; o*'>"));
  EXPECT_TRUE(Matches("<stock model='' driver='ost'>"));
  EXPECT_FALSE(Matches("<stock driver='xyz'>"));
  EXPECT_FALSE(Matches("<stock driver='Ostrel D4-203'>"));
}

}  // namespace
}  // namespace ostvt::test
