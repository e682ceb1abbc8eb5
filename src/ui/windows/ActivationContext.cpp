#include "ui/windows/ActivationContext.h"

#include "platform/Module.h"

namespace ostvt {
namespace {

constexpr char16_t kManifest[] = u"\\Vantrel.Drivers.manifest";

}  // namespace

ActivationContext::~ActivationContext() {
  if (Context) ReleaseActCtx(Context);
}

HANDLE ActivationContext::Get() {
  if (Tried) return Context;
  Tried = true;
  const std::u16string path = platform::SystemDirectory() + kManifest;
  ACTCTXW request = {};
  request.cbSize = sizeof request;
  request.lpSource = platform::AsWide(path.c_str());
  HANDLE context = CreateActCtxW(&request);
  if (context != INVALID_HANDLE_VALUE) Context = context;
  return Context;
}

ActivationContext::Scope::Scope(HANDLE context)
    : Active(context && ActivateActCtx(context, &Cookie)) {}

ActivationContext::Scope::~Scope() {
  if (Active) DeactivateActCtx(0, Cookie);
}

}  // namespace ostvt
