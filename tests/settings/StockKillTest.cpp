// Saving stock in several processes, some of which are killed.
#ifdef __linux__

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

constexpr int kStocks = 60;

// A list that shares some names with that of another `kind`, at other places and with other data.
void Fill(PrinterModel* model, int kind, StockList* list) {
  list->Build(model);
  list->GetFirst()->Height = 10000 + kind;
  for (int i = 0; i < kStocks; ++i) {
    const int number = i * (kind + 2);
    AddStockTo(list, OString("L") + OString::FromInt(number, 4), 1000 * kind + number);
  }
  AddStockTo(list, kind == 0 ? "A" : "Z", kind, 1, kStockOfModel);
  list->Normalize();
  list->ListCrc = 0;
}

class StockKill : public StockTest {
 protected:
  std::string Content(int kind) {
    StockList list;
    Fill(Model(), kind, &list);
    return ContentOf(list);
  }
  std::string Stored() {
    StockList list;
    list.Load(Model());
    return ContentOf(list);
  }
  template <typename Action>
  static pid_t Fork(Action action) {
    const pid_t child = fork();
    if (child != 0) return child;
    action();
    _exit(0);
  }
};

TEST_F(StockKill, KilledSaveLeavesTheOldListOrTheNewOne) {
  const std::string contents[] = {Content(0), Content(1)};
  StockList first;
  Fill(Model(), 0, &first);
  ASSERT_TRUE(first.Save(Model()));
  ASSERT_EQ(contents[0], Stored());
  std::mt19937 random(99);
  int seen[2] = {0, 0};
  for (int round = 0; round < 24; ++round) {
    const pid_t child = Fork([this] {
      StockList lists[2];
      for (int kind = 0; kind < 2; ++kind) Fill(Model(), kind, &lists[kind]);
      for (int turn = 1;; ++turn) {
        StockList& list = lists[turn % 2];
        list.ListCrc = 0;
        if (!list.Save(Model())) _exit(1);
      }
    });
    usleep(static_cast<useconds_t>(10000 + random() % 60000));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    const std::string stored = Stored();
    ASSERT_TRUE(stored == contents[0] || stored == contents[1]) << stored;
    ++seen[stored == contents[1]];
  }
  // Else nothing was ever saved before the end came.
  EXPECT_GT(seen[0], 0);
  EXPECT_GT(seen[1], 0);
}

TEST_F(StockKill, TwoProcessesSavingAtOnceLeaveOneOfTheTwoLists) {
  const std::string contents[] = {Content(0), Content(1)};
  Model();
  for (int round = 0; round < 4; ++round) {
    pid_t children[2];
    for (int kind = 0; kind < 2; ++kind) {
      children[kind] = Fork([this, kind] {
        for (int turn = 0; turn < 6; ++turn) {
          StockList list;
          Fill(Model(), kind, &list);
          if (!list.Save(Model())) _exit(1);
        }
      });
    }
    // Whoever reads meanwhile sees a whole list too.
    for (int look = 0; look < 20; ++look) {
      const std::string stored = Stored();
      EXPECT_TRUE(stored == contents[0] || stored == contents[1] || round == 0) << stored;
      usleep(2000);
    }
    for (const pid_t child : children) {
      int status = 0;
      waitpid(child, &status, 0);
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    const std::string stored = Stored();
    ASSERT_TRUE(stored == contents[0] || stored == contents[1]) << stored;
  }
}

}  // namespace
}  // namespace ostvt::test

#endif
