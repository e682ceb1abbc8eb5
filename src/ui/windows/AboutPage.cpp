#include "ui/windows/AboutPage.h"

#include "language/resource.h"
#include "model/PrinterModel.h"
#include "settings/DriverSession.h"
#include "ui/windows/UResourceSet.h"

namespace ostvt {
namespace {

// The maker's own picture, and that of another company whose name the printers bear.
constexpr const char* kPictureKeys[] = {"About.Graphic.OEM", "About.Graphic.Vantrel"};

// "Version 6.7.4 (2026-03-01)"; a build that has no date leaves the brackets out.
OString VersionLine(const OString& pattern, const OString& version, const OString& date) {
  OString text = pattern;
  if (date.IsEmpty()) text.Replace(" (%2)", "");
  text.Replace("%1", version);
  text.Replace("%2", date);
  return text;
}

}  // namespace

const char* AboutPage::GetHelpTopic() { return "/base/About.html"; }

void AboutPage::OnInitDialog() {
  UPage::OnInitDialog();
  // These are true of whatever device mode the sheet has.
  SetControlText(
      IDC_ABOUT_VERSION,
      VersionLine(Text(IDS_ABOUT_VERSION), Session->GetProductVersion(), Session->GetBuildDate()));
  ExpandText(IDC_ABOUT_PRODUCT);
  ExpandText(IDC_ABOUT_COPYRIGHT);
  ExpandText(IDC_ABOUT_TRADEMARKS);
  ShowPicture();
}

void AboutPage::Update(bool) {}

void AboutPage::ShowPicture() {
  if (!Session->Model) return;
  OString maker = OString(Session->Model->GetOemTag()).Mid(1);
  maker.MakeUpper();
  for (const char* key : kPictureKeys) {
    const OString name = Session->Model->GetDefinitionString("OEM:" + maker, key);
    if (name.IsEmpty()) continue;
    const ResourceData data = Resources().Find(kResourceBitmap, name.GetWide());
    if (!data.Data) continue;
    Picture = {data.Data, data.Size};
    SendMessageW(ControlWindow(IDC_ABOUT_PICTURE), kPictureSetPicture, TRUE,
                 reinterpret_cast<LPARAM>(&Picture));
    return;
  }
}

}  // namespace ostvt
