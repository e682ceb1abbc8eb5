#include "entry/ModuleLoad.h"

#include "core/DriverPath.h"
#include "entry/Exports.h"
#include "model/Caches.h"
#include "platform/Module.h"

namespace ostvt {
namespace {

constexpr uint32_t kProcessDetach = 0;
constexpr uint32_t kProcessAttach = 1;

bool isAttached = false;

}  // namespace

void AttachModule(void* instance) {
  if (isAttached) return;
  isAttached = true;
  PrepareModule(instance);
  platform::SetModuleHandle(instance);
  OpenCaches();
  std::u16string directory;
  if (GetVersionDirectory(&directory)) SetDriverPathFlags(directory);
}

void DetachModule(bool processEnds) {
  if (!isAttached) return;
  isAttached = false;
  if (!processEnds) CloseCaches();
}

}  // namespace ostvt

int32_t OSTVT_API DllInitialize(void* instance, uint32_t reason, void* reserved) {
  if (reason == ostvt::kProcessAttach) ostvt::AttachModule(instance);
  if (reason == ostvt::kProcessDetach) ostvt::DetachModule(reserved != nullptr);
  return 1;
}
