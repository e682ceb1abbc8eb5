#include "platform/Lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace ostvt::platform {
namespace {

// Whether another thread gets the lock within a moment; it gets it sooner or later.
class Contender {
 public:
  explicit Contender(Lock& lock)
      : Thread([&lock, this] {
          LockGuard guard(lock);
          Entered = true;
        }) {}
  ~Contender() { Thread.join(); }
  bool GetsIn() const {
    for (int i = 0; i < 50 && !Entered; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return Entered;
  }

 private:
  std::atomic<bool> Entered = false;
  std::thread Thread;
};

TEST(Lock, KeepsThreadsApart) {
  Lock lock;
  int64_t count = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int k = 0; k < 10000; ++k) {
        LockGuard guard(lock);
        count = count + 1;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(40000, count);
}

TEST(Lock, OneThreadMayEnterAgainAndLeavesAsOften) {
  Lock lock;
  lock.Enter();
  lock.Enter();
  lock.Leave();
  {
    Contender other(lock);
    EXPECT_FALSE(other.GetsIn());
    lock.Leave();
  }
}

TEST(LockGuard, TakesTheLockUnlessToldNotTo) {
  Lock lock;
  {
    LockGuard guard(lock, false);
    Contender other(lock);
    for (int i = 0; i < 1000 && !other.GetsIn(); ++i) {
    }
    EXPECT_TRUE(other.GetsIn());
  }
}

TEST(LockGuard, TakesLaterOnceAndReleasesAtItsEnd) {
  Lock lock;
  std::unique_ptr<Contender> other;
  {
    LockGuard guard(lock, false);
    guard.Take();
    guard.Take();
    other = std::make_unique<Contender>(lock);
    EXPECT_FALSE(other->GetsIn());
  }
  for (int i = 0; i < 1000 && !other->GetsIn(); ++i) {
  }
  EXPECT_TRUE(other->GetsIn());
}

}  // namespace
}  // namespace ostvt::platform
