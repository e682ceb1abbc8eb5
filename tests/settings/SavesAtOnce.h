// A list saved in several threads and processes, some of which are killed.
//
// Two lists, of kind 0 and 1, are saved in turn. `save(model, kind)` fills and saves one, whatever
// was saved last; `read()` gives what a new list loads, as text; `contents` is that of the two.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <random>
#include <string>
#include <thread>

#include "model/PrinterModel.h"
#include "store/PrinterId.h"
#include "tests/support/ChildProcess.h"

#ifdef __linux__
#include <signal.h>
#endif

namespace ostvt::test {

template <typename Save, typename Read>
void ExpectOneListAfterTwoThreads(const OString& printer, const std::string (&contents)[2],
                                  Save save, Read read) {
  std::unique_ptr<PrinterModel> models[2];
  for (std::unique_ptr<PrinterModel>& model : models) {
    PrinterId id(printer);
    model.reset(CreatePrinterModel(id));
  }
  for (int round = 0; round < 3; ++round) {
    std::thread threads[2];
    for (int kind = 0; kind < 2; ++kind) {
      threads[kind] = std::thread([&models, save, kind] {
        for (int turn = 0; turn < 3; ++turn) EXPECT_TRUE(save(models[kind].get(), kind));
      });
    }
    for (std::thread& thread : threads) thread.join();
    const std::string stored = read();
    ASSERT_TRUE(stored == contents[0] || stored == contents[1]) << stored;
  }
}

#ifdef __linux__

template <typename Save, typename Read>
void ExpectOldOrNewListAfterKill(PrinterModel* model, const std::string (&contents)[2], Save save,
                                 Read read) {
  ASSERT_TRUE(save(model, 1));
  // What a save takes on this machine: the end comes within the first few.
  const auto start = std::chrono::steady_clock::now();
  ASSERT_TRUE(save(model, 0));
  const auto time = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - start);
  ASSERT_EQ(contents[0], read());
  std::mt19937 random(99);
  int seen[2] = {0, 0};
  for (int round = 0; round < 24; ++round) {
    const pid_t child = Fork([model, save, round] {
      for (int turn = round + 1;; ++turn) {
        if (!save(model, turn % 2)) _exit(1);
      }
    });
    usleep(static_cast<useconds_t>(10000 + random() % (10000 + 4 * time.count())));
    kill(child, SIGKILL);
    ASSERT_EQ(-1, ExitCodeOf(child));
    const std::string stored = read();
    ASSERT_TRUE(stored == contents[0] || stored == contents[1]) << stored;
    ++seen[stored == contents[1]];
  }
  // Else nothing was ever saved before the end came.
  EXPECT_GT(seen[0], 0);
  EXPECT_GT(seen[1], 0);
}

template <typename Save, typename Read>
void ExpectOneListAfterTwoProcesses(PrinterModel* model, const std::string (&contents)[2],
                                    Save save, Read read) {
  for (int round = 0; round < 4; ++round) {
    pid_t children[2];
    for (int kind = 0; kind < 2; ++kind) {
      children[kind] = Fork([model, save, kind] {
        for (int turn = 0; turn < 6; ++turn) {
          if (!save(model, kind)) _exit(1);
        }
      });
    }
    // Whoever reads meanwhile sees a whole list too.
    for (int look = 0; look < 20; ++look) {
      const std::string stored = read();
      EXPECT_TRUE(stored == contents[0] || stored == contents[1] || round == 0) << stored;
      usleep(2000);
    }
    for (const pid_t child : children) EXPECT_EQ(0, ExitCodeOf(child));
    const std::string stored = read();
    ASSERT_TRUE(stored == contents[0] || stored == contents[1]) << stored;
  }
}

#endif

}  // namespace ostvt::test
