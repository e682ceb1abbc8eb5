// The windows of a session: pages in the host's sheet, sheets and dialogs of its own.
#pragma once

#include "settings/SessionWindows.h"

namespace ostvt {

class SheetWindows final : public SessionWindows {
 public:
  std::unique_ptr<ResourceContext> OpenResources(DriverSession* session) const override;
  bool AddPage(DriverSession* session, const OString& templateName) const override;
  int32_t RunSheet(DriverSession* session, void* owner, const OString& title,
                   std::span<const char* const> templateNames) const override;
  int32_t RunDialog(DriverSession* session, void* owner,
                    const OString& templateName) const override;
  bool ChooseFile(DriverSession* session, void* owner, const OString& title,
                  std::span<const FileKind> kinds, OString* path) const override;
  void RefreshSheet(void* page) const override;
};

}  // namespace ostvt
