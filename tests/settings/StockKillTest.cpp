// Saving stock in several threads and processes, some of which are killed.
#include <random>
#include <thread>

#include "tests/settings/StockFixture.h"

#ifdef __linux__
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

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
};

// The registry has no transactions: there it is the order that keeps a list whole, and a lock that
// keeps two from mixing.
TEST_F(StockKill, TwoSessionsSavingAtOnceLeaveOneOfTheTwoLists) {
  const std::string contents[] = {Content(0), Content(1)};
  std::unique_ptr<PrinterModel> models[2];
  for (std::unique_ptr<PrinterModel>& model : models) {
    PrinterId id(Printer->Name());
    model.reset(CreatePrinterModel(id));
  }
  for (int round = 0; round < 3; ++round) {
    std::thread threads[2];
    for (int kind = 0; kind < 2; ++kind) {
      threads[kind] = std::thread([&models, kind] {
        for (int turn = 0; turn < 3; ++turn) {
          StockList list;
          Fill(models[kind].get(), kind, &list);
          EXPECT_TRUE(list.Save(models[kind].get()));
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    const std::string stored = Stored();
    ASSERT_TRUE(stored == contents[0] || stored == contents[1]) << stored;
  }
}

#ifdef __linux__

template <typename Action>
pid_t Fork(Action action) {
  const pid_t child = fork();
  if (child != 0) return child;
  action();
  _exit(0);
}

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

#endif

}  // namespace
}  // namespace ostvt::test
