// The system's viewer of help files.
#pragma once

#include "core/OString.h"
#include "platform/Libraries.h"

namespace ostvt {

// One a session; the viewer's library is looked for when help is first asked for, and stays loaded,
// since its window may outlive the session.
class HelpViewer {
 public:
  HelpViewer() = default;
  HelpViewer(const HelpViewer&) = delete;
  HelpViewer& operator=(const HelpViewer&) = delete;

  // Shows `topic` ("/base/PageSetup.html") of the file. False when the system has no viewer.
  bool Show(const OString& helpFile, const OString& topic);

 private:
  platform::LibraryHandle Library = nullptr;
  bool LoadTried = false;
};

}  // namespace ostvt
