// The versions of system libraries that the driver's pages are made for, from a manifest that an
// installer may have put beside the system's libraries.
#pragma once

#include "ui/windows/Controls.h"

namespace ostvt {

class ActivationContext {
 public:
  ActivationContext() = default;
  ~ActivationContext();
  ActivationContext(const ActivationContext&) = delete;
  ActivationContext& operator=(const ActivationContext&) = delete;

  // Made at the first call; null when there is no such manifest, or it can't be used.
  HANDLE Get();

  // In force on this thread for the object's life; nothing with a null context.
  class Scope {
   public:
    explicit Scope(HANDLE context);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    ULONG_PTR Cookie = 0;
    bool Active;
  };

 private:
  HANDLE Context = nullptr;
  bool Tried = false;
};

}  // namespace ostvt
