// A store whose user is killed after a number of calls.
#pragma once

#include "store/ORegistry.h"

namespace ostvt::test {

// Takes no more than a number of calls, as if the process were killed before the next.
class StoppingRegistry : public ORegistry {
 public:
  explicit StoppingRegistry(int calls) : Left(calls) {}
  platform::KeyHandle OpenKey(const OString& path, bool create) const override {
    if (Left == 0) return nullptr;
    --Left;
    ++Made;
    return ORegistry::OpenKey(path, create);
  }
  bool IsStopped() const { return Left == 0; }
  int CallsMade() const { return Made; }

 private:
  mutable int Left;
  mutable int Made = 0;
};

}  // namespace ostvt::test
