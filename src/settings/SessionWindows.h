// What a session asks of windows: the texts of the user's language, the pages of the host's sheet,
// and the sheets and dialogs that an action opens. Without windows a session has none of these, and
// all of it answers as cancelled. On the thread of the session; `owner` may be null.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "core/OString.h"
#include "settings/ResourceContext.h"

namespace ostvt {

class DriverSession;

// A kind of file that the user may choose from: string number of its name, and its pattern.
struct FileKind {
  int32_t name;
  const char* pattern;
};

class SessionWindows {
 public:
  // The session's texts and templates; they are looked for when the first is asked for.
  virtual std::unique_ptr<ResourceContext> OpenResources(DriverSession* session) const = 0;
  // Adds the page of that template, as the last one, to the host's sheet. False when it wasn't
  // added, as for a template that has no page here.
  virtual bool AddPage(DriverSession* session, const OString& templateName) const = 0;
  // A sheet of those pages until the user closes it: 1 for OK, 2 for cancelled, with the session's
  // device mode as it was; 0 when it can't be shown, as when none of the pages exists here.
  virtual int32_t RunSheet(DriverSession* session, void* owner, const OString& title,
                           std::span<const char* const> templateNames) const = 0;
  // A dialog until the user closes it: the control that ended it, 2 for cancelled, with the
  // session's device mode as it was; 0 when it can't be shown.
  virtual int32_t RunDialog(DriverSession* session, void* owner,
                            const OString& templateName) const = 0;
  // An existing file of the user's choice; false when none was chosen.
  virtual bool ChooseFile(DriverSession* session, void* owner, const OString& title,
                          std::span<const FileKind> kinds, OString* path) const = 0;
  // Makes every page of the sheet that holds `page` show the session's settings as they are now.
  virtual void RefreshSheet(void* page) const = 0;

 protected:
  ~SessionWindows() = default;
};

}  // namespace ostvt
