#include "comm/MonitorLink.h"

#include <gtest/gtest.h>

#include "store/PrinterRegistry.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

constexpr char kBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";
constexpr char kShadow[] = "LOCAL:Printers/[PRINTER]/Shadow";

TEST(MonitorLink, BlockIsOneByteAndItsEndNoValue) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  MonitorLink link(printer.Name());
  link.SetShadowBlocked(true);
  PrinterRegistry store(printer.Name());
  EXPECT_EQ(1, store.GetValueSize(kBlocked));
  EXPECT_EQ(1, store.ReadByte(kBlocked, 0));
  link.SetShadowBlocked(false);
  EXPECT_EQ(-1, store.GetValueSize(kBlocked));
}

TEST(MonitorLink, EndOfNoBlockMakesNoKey) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  MonitorLink(printer.Name()).SetShadowBlocked(false);
  EXPECT_FALSE(
      PrinterRegistry(printer.Name()).GetKeyInfo("USER:Printers/[PRINTER]", nullptr, nullptr));
}

TEST(MonitorLink, BlockIsPastTheShadowRoute) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  PrinterRegistry(printer.Name()).WriteByte(kShadow, 2);
  PrinterRegistry shadowed(printer.Name());
  ASSERT_TRUE(shadowed.IsShadowed);
  PrinterRegistry plain(printer.Name());
  plain.SetShadowed(false);
  MonitorLink link(printer.Name());
  link.SetShadowBlocked(true);
  EXPECT_EQ(1, plain.ReadByte(kBlocked, 0));
  EXPECT_EQ(0, shadowed.ReadByte(kBlocked, 0));
  shadowed.WriteByte(kBlocked, 1);
  link.SetShadowBlocked(false);
  EXPECT_EQ(0, plain.ReadByte(kBlocked, 0));
  EXPECT_EQ(1, shadowed.ReadByte(kBlocked, 0));
  shadowed.Delete(kBlocked, false);
}

TEST(MonitorLink, NameInThePathIsEscaped) {
  TestPrinterOptions options;
  options.Name = u"a/b:c";
  const TestPrinter printer(options);
  ASSERT_TRUE(printer.IsReady());
  MonitorLink link(printer.Name());
  link.SetShadowBlocked(true);
  EXPECT_EQ(1, ORegistry().ReadByte("USER:Printers/a%2Fb%3Ac/Shadow Blocked", 0));
  link.SetShadowBlocked(false);
}

}  // namespace
}  // namespace ostvt::test
