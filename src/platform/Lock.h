// A recursive lock between threads of one process, and its guard.
#pragma once

namespace ostvt::platform {

class Lock {
 public:
  Lock();
  ~Lock();
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
  void Enter();
  void Leave();

 private:
  // Room for the system's own lock object (a CRITICAL_SECTION is 40 bytes, a pthread mutex 40).
  alignas(8) unsigned char Storage[64];
};

class LockGuard {
 public:
  // Takes the lock unless `take` is false; Take() takes it later, once.
  explicit LockGuard(Lock& lock, bool take = true) : Target(lock) {
    if (take) Take();
  }
  ~LockGuard() {
    if (Taken) Target.Leave();
  }
  LockGuard(const LockGuard&) = delete;
  LockGuard& operator=(const LockGuard&) = delete;
  void Take() {
    if (Taken) return;
    Target.Enter();
    Taken = true;
  }

 private:
  Lock& Target;
  bool Taken = false;
};

}  // namespace ostvt::platform
