// Which pages a session's sheets have.
#include "comm/PrinterPort.h"
#include "core/DriverPath.h"
#include "model/PrinterModel.h"
#include "settings/DriverSession.h"

namespace ostvt {
namespace {

// To the rendering half: how well Type 1 fonts are kept by the system; below 1 they aren't.
constexpr int32_t kEscapeType1Fonts = 19901;

constexpr char kAboutTemplate[] = "About.Template";
constexpr char kAboutDefault[] = "About.Default";

// "OEM:VT", from "ovt".
OString OemSection(const PrinterModel& model) {
  OString maker = OString(model.GetOemTag()).Mid(1);
  maker.MakeUpper();
  return "OEM:" + maker;
}

bool HasFonts(DriverSession& session) {
  return session.Model->HasFontGroups() || session.OptionalFonts.GetCount() > 0 ||
         session.Model->CanDownload();
}

OString FontsTemplate(DriverSession& session) {
  if (DriverOnNtPath) return "*:FONTS";
  const bool type1 =
      session.Port && session.Port->Escape(kEscapeType1Fonts, 0, nullptr, 0, nullptr) >= 1;
  return type1 ? "*:FONTS_NOATM" : "*:FONTS";
}

}  // namespace

int32_t DriverSession::RegisterPages(uint32_t pageFlags) {
  if (!Model) return 0;
  int32_t count = 0;
  if (pageFlags & kPagesSetup) count += AddPage("*:PAGE_SETUP");
  if (pageFlags & kPagesGraphics) count += AddPage("*:GRAPHICS");
  if (pageFlags & kPagesFonts) {
    if (HasFonts(*this)) count += AddPage(FontsTemplate(*this));
    count += AddPage("*:TOOLS");
  }
  if (pageFlags & kPagesCache) {
    CacheInfo cache;
    GetCacheInfo(&cache);
    if (cache.count > 0) {
      count += AddPage("*:CACHE/SETTINGS");
      count += AddPage("*:CACHE/CONTENTS");
    }
  }
  return count;
}

bool DriverSession::AddPage(const OString& templateName) {
  if (DriverOnNtPath) return Windows && Windows->AddPage(this, templateName);
  PendingPageNames.Add(templateName);
  return true;
}

bool DriverSession::AddAboutPage() {
  if (!Model) return false;
  const OString name = Model->GetDefinitionString(OemSection(*Model), kAboutTemplate);
  HasAboutPage = !name.IsEmpty() && AddPage(name);
  return HasAboutPage;
}

void DriverSession::KeepAboutClosed() { AboutMayOpenFirst = false; }

bool DriverSession::IsAboutFirst() {
  return AboutMayOpenFirst && HasAboutPage && Model &&
         Model->GetDefinitionBool(OemSection(*Model), kAboutDefault, false);
}

}  // namespace ostvt
