// The About page, and the dialog about a monitor that doesn't answer.
#include "platform/VersionResource.h"
#include "tests/ui/windows/PagesFixture.h"
#include "ui/PlatformWindows.h"
#include "ui/windows/NetworkErrorDialog.h"

namespace ostvt::test {
namespace {

class AboutPageTest : public PagesTest {};

TEST_F(AboutPageTest, ShowsVersionAndTextsWithoutMacros) {
  AddLabelPrinter();
  const HWND page = OpenPage("*:ABOUT");
  const std::string version = Narrow(page, IDC_ABOUT_VERSION);
  EXPECT_EQ(0u, version.find("Version "));
  EXPECT_EQ(std::string::npos, version.find('%'));
  for (int id : {IDC_ABOUT_PRODUCT, IDC_ABOUT_COPYRIGHT, IDC_ABOUT_TRADEMARKS})
    EXPECT_EQ(std::string::npos, Narrow(page, id).find('{')) << id;
  EXPECT_NE(std::string::npos, Narrow(page, IDC_ABOUT_PRODUCT).find("\xC2\xAE"));
}

TEST_F(AboutPageTest, ShowsItsTextsOverAForeignDevModeToo) {
  AddLabelPrinter();
  memcpy(Settings().GetRecord().Trailer->TrailerModel, "xyz", 3);
  const HWND page = OpenPage("*:ABOUT");
  EXPECT_EQ(0u, Narrow(page, IDC_ABOUT_VERSION).find("Version "));
}

TEST_F(AboutPageTest, ShowsTheMakersPicture) {
  Oem = "[VT]\nAbout.Graphic.Vantrel=AboutVantrel\n";
  AddLabelPrinter();
  const HWND page = OpenPage("*:ABOUT");
  const HWND picture = GetDlgItem(page, IDC_ABOUT_PICTURE);
  RECT client;
  GetClientRect(picture, &client);
  UpdateWindow(picture);
  const HDC context = GetDC(picture);
  int drawn = 0;
  for (int y = 0; y < client.bottom; ++y) {
    for (int x = 0; x < client.right; ++x)
      drawn += GetPixel(context, x, y) != GetSysColor(COLOR_3DFACE);
  }
  ReleaseDC(picture, context);
  EXPECT_GT(drawn, 100);
}

class NetworkErrorDialogTest : public PagesTest {
 protected:
  MonitorFailureAnswer Ask(int button, bool isClient = true) {
    if (!Printer) AddLabelPrinter();
    Session().Windows = PlatformWindows();
    User.Expect([button](HWND dialog) {
      Click(dialog, button);
      if (IsWindow(dialog) && button == IDCANCEL) Press(dialog, button);
    });
    const MonitorFailureAnswer answer = ShowMonitorFailureDialog(&Session(), isClient);
    Session().Windows = nullptr;
    return answer;
  }

  DialogDriver User;
};

TEST_F(NetworkErrorDialogTest, Control774TurnsCommunicationOff) {
  EXPECT_EQ(MonitorFailureAnswer::kTurnOff, Ask(774, true));
  EXPECT_EQ(MonitorFailureAnswer::kTurnOff, Ask(774, false));
}

TEST_F(NetworkErrorDialogTest, RetryAndCancelAskTheMonitorAgain) {
  EXPECT_EQ(MonitorFailureAnswer::kAgain, Ask(IDOK));
  EXPECT_EQ(MonitorFailureAnswer::kAgain, Ask(IDCANCEL));
}

TEST_F(NetworkErrorDialogTest, DialogThatCannotBeShownIsToldApart) {
  AddPrinterWith({});  // no language module
  Session().Windows = PlatformWindows();
  EXPECT_EQ(MonitorFailureAnswer::kNotShown, ShowMonitorFailureDialog(&Session(), true));
  Session().Windows = nullptr;
  EXPECT_EQ(MonitorFailureAnswer::kNotShown, ShowMonitorFailureDialog(&Session(), true));
}

TEST_F(NetworkErrorDialogTest, SettingsStayAsTheyAre) {
  AddLabelPrinter();
  const std::vector<uint8_t> block = Block();
  Ask(774);
  Ask(IDOK);
  EXPECT_EQ(block, Block());
}

}  // namespace
}  // namespace ostvt::test
