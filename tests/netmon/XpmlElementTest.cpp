#include "companions/netmon/XpmlElement.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt::test {
namespace {

using netmon::ParseXpmlElement;
using netmon::XpmlElement;

std::string AttributeOf(const char* text, const char* name) {
  XpmlElement element;
  return ParseXpmlElement(text, &element) ? std::string(element.Attribute(name)) : "not parsed";
}

TEST(XpmlElement, LengthEndsAtItsBracket) {
  XpmlElement element;
  ASSERT_TRUE(ParseXpmlElement("<state name='OS' action='get' />&#0;", &element));
  EXPECT_EQ("state", element.Name);
  EXPECT_EQ(32u, element.Length);
  EXPECT_TRUE(element.IsEmpty);
  EXPECT_FALSE(element.IsEnd);
}

TEST(XpmlElement, EndHasOnlyAName) {
  XpmlElement element;
  ASSERT_TRUE(ParseXpmlElement("</encode></settings>", &element));
  EXPECT_EQ("encode", element.Name);
  EXPECT_EQ(9u, element.Length);
  EXPECT_TRUE(element.IsEnd);
}

TEST(XpmlElement, BracketInAValueEndsNothing) {
  XpmlElement element;
  ASSERT_TRUE(ParseXpmlElement("<query name='a>b/' action='get'>body", &element));
  EXPECT_EQ("a>b/", element.Attribute("name"));
  EXPECT_EQ("get", element.Attribute("action"));
  EXPECT_EQ(32u, element.Length);
  EXPECT_FALSE(element.IsEmpty);
}

TEST(XpmlElement, AttributesStandInAnyOrderAndSpacing) {
  EXPECT_EQ("OS", AttributeOf("<state action='get' name='OS'/>", "name"));
  EXPECT_EQ("OS", AttributeOf("<state\r\n  name='OS'\taction='get' />", "name"));
}

TEST(XpmlElement, NamesAreWholeNames) {
  EXPECT_EQ("", AttributeOf("<x rename='a'/>", "name"));
  EXPECT_EQ("b", AttributeOf("<x rename='a' name='b'/>", "name"));
  // A value that looks like an attribute is none.
  EXPECT_EQ("", AttributeOf("<x a=' name='/>", "name"));
}

TEST(XpmlElement, WhatIsNotWellFormedIsNone) {
  for (const char* text :
       {"", "<", "<>", "</", "</>", "< a>", "<a", "<a ", "<a b", "<a b>", "<a b=c>", "<a b='c>",
        "<a b=\"c\">", "<a b='c'", "<a b='c' /", "<a / >", "<a ?>", "a>", "</a/>"}) {
    XpmlElement element;
    EXPECT_FALSE(ParseXpmlElement(text, &element)) << text;
  }
}

TEST(XpmlElement, NothingIsReadBehindTheTextsEnd) {
  const std::string whole = "<query action='get' value='response' name='Q' />";
  for (size_t size = 0; size < whole.size(); ++size) {
    const std::string cut(whole, 0, size);  // an allocation of its own
    XpmlElement element;
    EXPECT_FALSE(ParseXpmlElement(cut, &element)) << cut;
  }
}

}  // namespace
}  // namespace ostvt::test
