// The numbered actions of every family.
#include "settings/SessionActions.h"

#include <array>
#include <fstream>

#include "comm/PrinterPort.h"
#include "platform/PrintDrawing.h"
#include "settings/DriverSession.h"
#include "tests/comm/FakeMonitor.h"
#include "tests/comm/JobRecorder.h"
#include "tests/settings/FakeWindows.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

using Calls = std::vector<std::string>;
using Bar = std::array<int32_t, 4>;

// A sheet of paper that remembers its bars.
class Paper {
 public:
  Paper() { platform::SetPrintDrawingFunctions(&kFunctions); }
  ~Paper() { platform::SetPrintDrawingFunctions(nullptr); }
  Paper(const Paper&) = delete;
  Paper& operator=(const Paper&) = delete;

  inline static int32_t Width = 832;
  inline static int32_t Height = 1216;
  inline static std::vector<Bar> Bars;

 private:
  static bool GetSize(platform::PrintJobHandle, int32_t* width, int32_t* height) {
    *width = Width;
    *height = Height;
    return true;
  }
  static void Fill(platform::PrintJobHandle, int32_t left, int32_t top, int32_t right,
                   int32_t bottom) {
    Bars.push_back({left, top, right, bottom});
  }
  static constexpr platform::PrintDrawingFunctions kFunctions = {GetSize, Fill};
};

class SessionWithStorages : public DriverSession {
 public:
  void GetCacheInfo(CacheInfo* record) override {
    *record = CacheInfo();
    record->count = Storages;
  }
  int32_t Storages = 0;
};

class SessionActions : public SettingsTest {
 protected:
  void Open(const std::string& method = "", const std::string& font = "") {
    ModelText text;
    text.Method += method;
    text.Font += font;
    AddPrinter(text);
    Session.Windows = &Windows;
    Session.NoShadowPush = true;
    Session.Link.Loader = &Monitor;
    Session.Initialize(nullptr, nullptr, 0, Printer->Name());
    ASSERT_NE(nullptr, Session.Model);
    OwnPort.Bind(&Session, nullptr, Session.Link, nullptr);
    Session.Port = &OwnPort;
    Windows.Calls.clear();
    Paper::Bars.clear();
    Paper::Width = 832;
  }
  void TearDown() override {
    if (Printer) MonitorLink(Printer->Name()).SetShadowBlocked(false);
    SettingsTest::TearDown();
  }
  uint32_t Flags(int32_t action) {
    ActionContext context{&Session, nullptr};
    return Session.GetActionFlags(&context, action);
  }
  bool Do(int32_t action) {
    ActionContext context{&Session, this};
    return Session.DoAction(&context, action);
  }

  JobRecorder Recorder;
  Paper Page;
  FakeMonitor Monitor;
  FakeWindows Windows;
  PrinterPort OwnPort;
  SessionWithStorages Session;
};

TEST_F(SessionActions, FlagsOfAModelWithoutCacheAndMonitor) {
  Open();
  const std::map<int32_t, uint32_t> expected = {{1, 1},  {2, 1},  {4, 1}, {28, 7},
                                                {29, 7}, {38, 7}, {49, 7}};
  for (int32_t action = -1; action <= 52; action++) {
    const auto flags = expected.find(action);
    EXPECT_EQ(flags == expected.end() ? 0 : flags->second, Flags(action)) << action;
  }
}

TEST_F(SessionActions, ActionsOfTheCacheNeedOne) {
  Open("Cache.Graphic=true\n");
  EXPECT_EQ(0u, Flags(5));
  EXPECT_EQ(1u, Flags(6));
  Session.Storages = 1;
  EXPECT_EQ(7u, Flags(5));
}

TEST_F(SessionActions, WithoutACacheItsSheetStaysClosed) {
  Open();
  Session.Storages = 1;
  EXPECT_FALSE(Do(5));
  EXPECT_FALSE(Do(6));
  EXPECT_TRUE(Windows.Calls.empty());
  EXPECT_TRUE(Recorder.Calls.empty());
}

TEST_F(SessionActions, CacheIsShownAndCleared) {
  Open("Cache.Graphic=true\n");
  Session.Storages = 1;
  EXPECT_TRUE(Do(5));
  EXPECT_EQ(Calls{"sheet [2483] *:CACHE/SETTINGS *:CACHE/CONTENTS"}, Windows.Calls);
  EXPECT_EQ(this, Windows.Owner);
  Recorder.OtherEscape = [](int, void*, int) { return 1; };
  EXPECT_TRUE(Do(6));
  EXPECT_EQ((Calls{"create Test Printer", "start [2484]", "page", "packet 0", "escape 11020",
                   "end page", "end", "delete"}),
            Recorder.Calls);
}

TEST_F(SessionActions, SheetsHaveTheirPages) {
  Open();
  EXPECT_TRUE(Do(38));
  EXPECT_TRUE(Do(40));
  EXPECT_TRUE(Do(49));
  EXPECT_EQ((Calls{"sheet [1341] *:DRIVER/ADMINISTRATION *:DRIVER/NETWORK_SETTINGS "
                   "*:DRIVER/REGIONAL_OPTIONS *:DRIVER/SPECIFICATIONS",
                   "refresh", "sheet [2471] *:STATUS/MONITORING *:STATUS/COMMUNICATIONS",
                   "sheet [2490] *:FONT_SETTINGS/RESIDENT *:FONT_SETTINGS/UTILITY "
                   "*:FONTS/^FONT_OPTIONS/ENCODING"}),
            Windows.Calls);
}

TEST_F(SessionActions, FontSheetHasAPageForDownloadsWhereTheModelTakesThem) {
  Open("", "Download.Bitmap=Yes\n");
  EXPECT_TRUE(Do(49));
  EXPECT_EQ(Calls{"sheet [2490] *:FONT_SETTINGS/RESIDENT *:FONT_SETTINGS/DOWNLOADED "
                  "*:FONT_SETTINGS/UTILITY *:FONTS/^FONT_OPTIONS/ENCODING"},
            Windows.Calls);
}

// The 16-bit path asks the rendering half how it keeps Type 1 fonts.
TEST_F(SessionActions, FontsPageFollowsTheAnswerAboutType1Fonts) {
  Open("", "Download.Bitmap=Yes\n");
  const PathFlags path(false, false);
  for (const int answer : {-1, 0, 1, 7}) {
    static int given;
    given = answer;
    Recorder.OtherEscape = [](int escape, void*, int) { return escape == 19901 ? given : -9; };
    Session.PendingPageNames.SetSize(0);
    EXPECT_EQ(2, Session.RegisterPages(1));
    EXPECT_STREQ(answer >= 1 ? "*:FONTS_NOATM" : "*:FONTS",
                 Session.PendingPageNames[0].GetNarrow());
  }
}

TEST_F(SessionActions, OnlyAnAcceptedDriverSheetRefreshesTheOthers) {
  Open();
  Windows.Result = 2;
  EXPECT_TRUE(Do(38));
  EXPECT_EQ(1u, Windows.Calls.size());
  Windows.Result = 0;
  EXPECT_FALSE(Do(38));
}

TEST_F(SessionActions, DialogsAreAskedForByName) {
  Open();
  EXPECT_TRUE(Do(29));
  EXPECT_TRUE(Do(50));
  EXPECT_EQ((Calls{"dialog *:^SEND_COMMAND", "dialog *:TOOLS/^LOGGING"}), Windows.Calls);
  Windows.Result = 0;
  EXPECT_FALSE(Do(29));
  Session.Windows = nullptr;
  EXPECT_FALSE(Do(29));
  EXPECT_FALSE(Do(28));
  EXPECT_FALSE(Do(38));
}

TEST_F(SessionActions, ChosenFileIsSent) {
  Open();
  TempDirectory files;
  std::ofstream(files.Path("label.prn"), std::ios::binary) << "^XA";
  Windows.ChosenFile = files.WidePath(u"label.prn").c_str();
  EXPECT_TRUE(Do(28));
  EXPECT_EQ(Calls{"file [2317] 2337*.prn 2330*.*"}, Windows.Calls);
  EXPECT_EQ("^XA", Recorder.Bytes());
  Windows.ChosenFile.Clear();
  EXPECT_FALSE(Do(28));
}

TEST_F(SessionActions, TestPageIsAJobWithBarsOverThePage) {
  Open();
  EXPECT_TRUE(Do(1));
  EXPECT_EQ(
      (Calls{"create Test Printer", "start Printer Test", "page", "end page", "end", "delete"}),
      Recorder.Calls);
  ASSERT_EQ(21u, Paper::Bars.size());
  // The frame of a page of 832 by 1216 dots, and the stem of the T.
  EXPECT_EQ((Bar{0, 0, 832, 12}), Paper::Bars[0]);
  EXPECT_EQ((Bar{828, 0, 832, 1216}), Paper::Bars[1]);
  EXPECT_EQ((Bar{0, 1204, 832, 1216}), Paper::Bars[2]);
  EXPECT_EQ((Bar{0, 0, 4, 1216}), Paper::Bars[3]);
  EXPECT_EQ((Bar{114, 243, 135, 973}), Paper::Bars[9]);
}

TEST_F(SessionActions, EmptyPagesHaveNoBars) {
  Open();
  EXPECT_TRUE(Do(2));
  EXPECT_TRUE(Do(4));
  EXPECT_EQ(12u, Recorder.Calls.size());
  EXPECT_TRUE(Paper::Bars.empty());
}

TEST_F(SessionActions, PageThatCannotBeDrawnOnBeginsNoJob) {
  Open();
  Paper::Width = 0;
  EXPECT_FALSE(Do(1));
  EXPECT_EQ((Calls{"create Test Printer", "delete"}), Recorder.Calls);
}

// Every action that has a title, and its text.
constexpr std::pair<int32_t, int32_t> kActionTitles[] = {
    {1, 2401},  {2, 2405},  {3, 2452},  {4, 2451},  {5, 2483},  {6, 2484},  {7, 2453},  {8, 2457},
    {9, 2454},  {10, 2406}, {11, 2461}, {12, 2467}, {13, 2487}, {14, 2402}, {15, 2403}, {16, 2404},
    {17, 2456}, {18, 2455}, {19, 2410}, {20, 2407}, {21, 2408}, {22, 2409}, {23, 2411}, {24, 2412},
    {25, 2414}, {26, 2413}, {27, 2460}, {28, 2464}, {29, 2472}, {30, 2458}, {31, 2463}, {32, 2459},
    {33, 2465}, {34, 2466}, {35, 2468}, {36, 2470}, {37, 2469}, {39, 2450}, {41, 2485}, {42, 2486},
    {43, 2481}, {44, 2482}, {45, 2462}, {46, 2488}, {47, 2415}, {48, 2489}, {49, 2490},
};

TEST_F(SessionActions, TitlesAreTextsByNumber) {
  Open();
  std::map<int32_t, int32_t> texts(std::begin(kActionTitles), std::end(kActionTitles));
  for (int32_t action = -1; action <= 52; action++) {
    OString title = "before";
    Session.GetActionTitle(&title, action);
    const auto text = texts.find(action);
    EXPECT_EQ(text == texts.end() ? "" : "[" + std::to_string(text->second) + "]",
              std::string(title.GetNarrow()))
        << action;
  }
}

TEST_F(SessionActions, StatusNeedsAMonitorAndAPortThatAnswers) {
  Open();
  PrinterRegistry store = Store();
  store.SetShadowed(false);
  store.WriteDword("PRINT:Printers/[PRINTER]/Attributes", 0x840u);
  const auto flags = [&](const char* answer) {
    Monitor.Answer = answer;
    Session.Link.StateKnown = false;
    return Flags(40);
  };
  EXPECT_EQ(7u, flags("0;1;1;TCP"));
  EXPECT_EQ(0u, flags("0;0;1;TCP"));
  EXPECT_EQ(0u, flags("0;1;0;TCP"));
  // Ports that the model doesn't answer on.
  EXPECT_EQ(0u, flags("0;1;1;LPT"));
  EXPECT_EQ(0u, flags("0;1;1;USB"));
  // A port that answers is enough for the logs.
  EXPECT_EQ(7u, Flags(50));
}

TEST_F(SessionActions, LogsOfASharedPrinterCanBeSeen) {
  Open();
  EXPECT_EQ(0u, Flags(50));
  PrinterRegistry store = Store();
  store.SetShadowed(false);
  store.WriteString("PRINT:Printers/[PRINTER]/Share Name", "Labels");
  EXPECT_EQ(7u, Flags(50));
}

TEST_F(SessionActions, SessionWithoutAModelHasNone) {
  DriverSession empty;
  empty.Windows = &Windows;
  ActionContext context{&empty, nullptr};
  for (int32_t action = 0; action <= 50; action++) {
    EXPECT_EQ(0u, empty.GetActionFlags(&context, action)) << action;
    EXPECT_FALSE(empty.DoAction(&context, action)) << action;
  }
  EXPECT_TRUE(Windows.Calls.empty());
}

}  // namespace
}  // namespace ostvt::test
