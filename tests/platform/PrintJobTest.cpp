#include "platform/PrintJob.h"

#include <gtest/gtest.h>

#include "tests/platform/SpoolerFixture.h"

namespace ostvt::platform {
namespace {

TEST(PrintJob, NoJobDoesNothing) {
  DeletePrintJob(nullptr);
  EXPECT_EQ(0, StartPrintJob(nullptr, u"Job"));
  EXPECT_FALSE(StartPrintPage(nullptr));
  EXPECT_FALSE(EndPrintPage(nullptr));
  EXPECT_FALSE(EndPrintJob(nullptr));
  EXPECT_EQ(0, SendJobEscape(nullptr, kEscapeJobBytes, "\1\0x", 3, nullptr, 0));
}

TEST(PrintJob, NamelessPrinterHasNone) {
  EXPECT_EQ(nullptr, CreatePrintJob(nullptr, nullptr));
  EXPECT_EQ(nullptr, CreatePrintJob(u"", nullptr));
}

class PrintJobSpooler : public test::SpoolerFixture {};

TEST_F(PrintJobSpooler, UnknownPrinterHasNone) {
  EXPECT_EQ(nullptr, CreatePrintJob(u"No Such Printer", nullptr));
}

struct Call {
  int Escape;
  int InputSize;
  int OutputSize;
};
Call lastCall;
int deletions;

TEST(PrintJob, SetFunctionsTakeTheSystemsPlace) {
  static const PrintJobFunctions functions = {
      [](const char16_t*, const void* devMode) -> PrintJobHandle {
        return const_cast<void*>(devMode);
      },
      [](PrintJobHandle) { ++deletions; },
      [](PrintJobHandle, const char16_t*) -> int32_t { return 5; },
      [](PrintJobHandle) { return true; },
      [](PrintJobHandle) { return false; },
      [](PrintJobHandle) { return true; },
      [](PrintJobHandle, int escape, const void*, int inputSize, void*, int outputSize) {
        lastCall = {escape, inputSize, outputSize};
        return 7;
      }};
  deletions = 0;
  EXPECT_EQ(nullptr, SetPrintJobFunctions(&functions));
  int devMode = 0;
  EXPECT_EQ(&devMode, CreatePrintJob(u"Any", &devMode));
  EXPECT_EQ(5, StartPrintJob(&devMode, u"Job"));
  EXPECT_TRUE(StartPrintPage(&devMode));
  EXPECT_FALSE(EndPrintPage(&devMode));
  EXPECT_TRUE(EndPrintJob(&devMode));
  EXPECT_EQ(7, SendJobEscape(&devMode, 15033, nullptr, -3, nullptr, -4));
  EXPECT_EQ(15033, lastCall.Escape);
  EXPECT_EQ(0, lastCall.InputSize);
  EXPECT_EQ(0, lastCall.OutputSize);
  DeletePrintJob(&devMode);
  DeletePrintJob(nullptr);
  EXPECT_EQ(1, deletions);
  EXPECT_EQ(&functions, SetPrintJobFunctions(nullptr));
  EXPECT_EQ(nullptr, SetPrintJobFunctions(nullptr));
}

}  // namespace
}  // namespace ostvt::platform
