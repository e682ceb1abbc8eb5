// A change made by one process, as another one notices it.
#ifdef __linux__

#include <sys/wait.h>
#include <unistd.h>

#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class InvalidateProcessTest : public ModelFixture {
 protected:
  static int32_t CopiesLimit(const char* printer) {
    PrinterId id(printer);
    PrinterModel model;
    return model.Open(id) ? model.GetCopiesLimit() : -1;
  }
  // What another process that has both printers' records finds before and after the change: a digit
  // for each step that went wrong.
  static int Observe(int fromParent, int toParent) {
    int wrong = 0;
    if (CopiesLimit("Test Printer") != 5 || CopiesLimit("Second Printer") != 5) wrong += 1;
    char byte = 0;
    if (write(toParent, &byte, 1) != 1 || read(fromParent, &byte, 1) != 1) wrong += 10;
    // Nobody has told this process of the second printer's option yet.
    if (CopiesLimit("Second Printer") != 5) wrong += 20;
    if (CopiesLimit("Test Printer") != 32767) wrong += 40;
    if (CopiesLimit("Second Printer") != 32767) wrong += 80;
    return wrong;
  }
};

TEST_F(InvalidateProcessTest, AnotherProcessBuildsItsRecordsAnewThoseOfOtherPrintersToo) {
  DefineChain("Copies.Limit=5\n");
  Install();
  TestPrinterOptions other;
  other.Name = u"Second Printer";
  Install(other);
  int down[2];
  int up[2];
  ASSERT_EQ(pipe(down), 0);
  ASSERT_EQ(pipe(up), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) _exit(Observe(down[0], up[1]));
  char byte = 0;
  ASSERT_EQ(read(up[0], &byte, 1), 1);
  PrinterModel& first = Open("Test Printer");
  first.GetStore().WriteByte("Settings:Disable Copies Limit", 1);
  Open("Second Printer").GetStore().WriteByte("Settings:Disable Copies Limit", 1);
  first.Invalidate();
  ASSERT_EQ(write(down[1], &byte, 1), 1);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  for (int end : {down[0], down[1], up[0], up[1]}) close(end);
}

}  // namespace
}  // namespace ostvt::test

#endif
