#include "settings/DevModeOverlay.h"

#include <algorithm>
#include <cstddef>

#include "core/Memory.h"
#include "settings/DevMode.h"

namespace ostvt {

void OverlayDevMode(const DevMode& source, DevMode* target) {
  constexpr uint32_t kStart = offsetof(PublicDevMode, dmFields);
  const uint32_t end = std::min(source.GetPublicSize(), target->GetPublicSize());
  if (end > kStart)
    CopyBytes(target->GetBlock() + kStart, source.GetBlock() + kStart, end - kStart);
  target->CopyPrivateFrom(source);
}

}  // namespace ostvt
