#include "companions/netmon/Command.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

using netmon::Command;
using netmon::ParseCommand;

TEST(MonitorCommand, QueryNamesPrinterJobAndNumber) {
  Command command;
  ASSERT_TRUE(
      ParseCommand(u"open \"Packing Table 3\" -jn \"Send Printer Query\" -ji 42", &command));
  EXPECT_EQ(u"open", command.Verb);
  EXPECT_EQ(u"Packing Table 3", command.Printer);
  EXPECT_EQ(u"Send Printer Query", command.Document);
  EXPECT_EQ(42, command.Job);
}

TEST(MonitorCommand, NumberMayBeMissing) {
  Command command;
  ASSERT_TRUE(ParseCommand(u"open \"P\" -jn \"J\"", &command));
  EXPECT_EQ(u"J", command.Document);
  EXPECT_EQ(0, command.Job);
}

TEST(MonitorCommand, StatusNeedsNoJob) {
  Command command;
  ASSERT_TRUE(ParseCommand(u"close \"\\\\server\\P\"", &command));
  EXPECT_EQ(u"close", command.Verb);
  EXPECT_EQ(u"\\\\server\\P", command.Printer);
  EXPECT_EQ(u"", command.Document);
}

TEST(MonitorCommand, NamesMayHoldQuotesAndSwitches) {
  Command command;
  ASSERT_TRUE(ParseCommand(u"open \"a\"b, c\" -jn \"say \"x\" -ji 5\" -ji 7", &command));
  EXPECT_EQ(u"a\"b, c", command.Printer);
  EXPECT_EQ(u"say \"x\" -ji 5", command.Document);
  EXPECT_EQ(7, command.Job);
}

TEST(MonitorCommand, SwitchInANameIsNoNumber) {
  Command command;
  ASSERT_TRUE(ParseCommand(u"open \"P\" -jn \"a -ji 5\"", &command));
  EXPECT_EQ(u"a -ji 5", command.Document);
  EXPECT_EQ(0, command.Job);
}

TEST(MonitorCommand, WithoutVerbOrPrinterItIsNone) {
  for (const char16_t* text : {u"", u"open", u"open P", u"open \"", u"open \"\"", u" \"P\""}) {
    Command command;
    EXPECT_FALSE(ParseCommand(text, &command));
  }
}

}  // namespace
}  // namespace ostvt::test
