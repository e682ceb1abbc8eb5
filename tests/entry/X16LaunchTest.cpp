#include "entry/X16Launch.h"

#include "settings/DriverSession.h"
#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

constexpr char kChannel[] = "Chan";
constexpr char kMessage[] = "DATA:LW Message";

int channelWindow;
std::vector<std::string> calls;  // to the partner, and to whoever shows sheets
OString lookedFor;

void* FindOurs(const char* name) {
  lookedFor = name;
  return strcmp(name, kChannel) == 0 ? &channelWindow : nullptr;
}

void NoteSend(void* window, uint32_t message) {
  EXPECT_EQ(window, &channelWindow);
  calls.push_back("send " + std::to_string(message));
}

void NotePost(void* window, uint32_t message, uintptr_t value) {
  EXPECT_EQ(window, &channelWindow);
  calls.push_back("post " + std::to_string(message) + " " + std::to_string(value));
}

constexpr platform::ChannelFunctions kFunctions = {FindOurs, NoteSend, NotePost};

// What the sheet was asked to be.
struct Sheet {
  bool JoinsProperties;
  bool Defaults;
  bool AboutFirst;
  int32_t Copies;
  std::string Printer;
  std::string Channel;
  void* Window;
  std::string Pages;
};
std::vector<Sheet> sheets;
int32_t sheetResult;

int32_t NoteSheet(DriverSession* session, bool joinsProperties) {
  std::string pages;
  for (int32_t i = 0; i < session->PendingPageNames.Count; ++i)
    pages += std::string(i ? " " : "") + session->PendingPageNames[i].GetNarrow();
  sheets.push_back({joinsProperties, session->IsDefaultsSession(), session->AboutMayOpenFirst,
                    session->DevModeBuffer.GetCopies(), session->PrinterName.GetNarrow(),
                    session->ChannelName.GetNarrow(), session->ChannelWindow, pages});
  calls.push_back("sheet");
  return sheetResult;
}

class X16Launch : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    calls.clear();
    sheets.clear();
    sheetResult = 1;
    platform::SetChannelFunctions(&kFunctions);
    AddPrinter();
    Key.Root = "LOCAL:X16/Chan";
    Key.WriteString("Printer", Printer->Name());
  }
  void TearDown() override {
    platform::SetChannelFunctions(nullptr);
    EntryTest::TearDown();
  }
  void Serve() { ServeLaunch(&channelWindow, kChannel, NoteSheet); }
  // The pages of a sheet that is launched now, without the family's.
  bool HasPage(const char* name) {
    calls.clear();
    sheets.clear();
    Serve();
    if (sheets.size() != 1) return false;
    return (" " + sheets[0].Pages + " ").find(" " + std::string(name) + " ") != std::string::npos;
  }

  PathFlags Flags{false, false};
  ORegistry Key;
};

TEST_F(X16Launch, PartnerIsWokenFirstAndToldTheResultLast) {
  sheetResult = 5;
  Serve();
  EXPECT_EQ(calls, (std::vector<std::string>{"send 1025", "sheet", "post 1027 5"}));
}

TEST_F(X16Launch, SessionKnowsItsPrinterAndChannel) {
  Serve();
  ASSERT_EQ(sheets.size(), 1u);
  EXPECT_EQ(sheets[0].Printer, "Test Printer");
  EXPECT_EQ(sheets[0].Channel, kChannel);
  EXPECT_EQ(sheets[0].Window, &channelWindow);
  EXPECT_FALSE(sheets[0].JoinsProperties);
  EXPECT_FALSE(sheets[0].Defaults);
}

TEST_F(X16Launch, PartnersDevModeIsMerged) {
  DevMode wide;
  wide.AllocateDefaults(Model());
  wide.SetCopies(23);
  uint8_t narrow[kNarrowDevModeSize];
  wide.WriteNarrow(Printer->Name(), narrow);
  Key.WriteBinary("DevMode 16", narrow, sizeof narrow);
  Serve();
  ASSERT_EQ(sheets.size(), 1u);
  EXPECT_EQ(sheets[0].Copies, 23);
}

TEST_F(X16Launch, DefaultsAreEditedWhereThePartnerSaysSo) {
  Key.WriteByte("Default DevMode", 1);
  Serve();
  ASSERT_EQ(sheets.size(), 1u);
  EXPECT_TRUE(sheets[0].Defaults);
}

TEST_F(X16Launch, JoiningTheHostsSheetGives1WhateverBecomesOfIt) {
  Key.WriteByte("Properties", 1);
  sheetResult = 7;
  Serve();
  ASSERT_EQ(sheets.size(), 1u);
  EXPECT_TRUE(sheets[0].JoinsProperties);
  EXPECT_EQ(calls.back(), "post 1027 1");
}

TEST_F(X16Launch, PagesOfADocument) {
  EXPECT_TRUE(HasPage("*:PAGE_SETUP"));
  EXPECT_TRUE(HasPage("*:GRAPHICS"));
  EXPECT_FALSE(HasPage("*:TOOLS"));
}

TEST_F(X16Launch, DefaultsHaveTheToolsToo) {
  Key.WriteByte("Default DevMode", 1);
  EXPECT_TRUE(HasPage("*:PAGE_SETUP"));
  EXPECT_TRUE(HasPage("*:GRAPHICS"));
  EXPECT_TRUE(HasPage("*:TOOLS"));
}

TEST_F(X16Launch, AdvancedSetupLeavesThePageSetupOut) {
  Key.WriteByte("Advanced Setup", 1);
  EXPECT_FALSE(HasPage("*:PAGE_SETUP"));
  EXPECT_TRUE(HasPage("*:GRAPHICS"));
  EXPECT_FALSE(HasPage("*:TOOLS"));
  Key.WriteByte("Default DevMode", 1);
  EXPECT_FALSE(HasPage("*:PAGE_SETUP"));
  EXPECT_TRUE(HasPage("*:GRAPHICS"));
  EXPECT_TRUE(HasPage("*:TOOLS"));
}

TEST_F(X16Launch, MessageForTheFontsAsksForTheirPagesAlone) {
  Store().WriteDword(kMessage, 1u);
  EXPECT_TRUE(HasPage("*:TOOLS"));
  EXPECT_FALSE(sheets[0].AboutFirst);
  EXPECT_EQ(sheets[0].Pages.find("*:PAGE_SETUP"), std::string::npos);
  EXPECT_EQ(Store().GetValueSize(kMessage), -1);
}

TEST_F(X16Launch, MessageForTheCacheAsksForItsPagesAlone) {
  Store().WriteDword(kMessage, 4u);
  EXPECT_FALSE(HasPage("*:PAGE_SETUP"));
  ASSERT_EQ(sheets.size(), 1u);
  EXPECT_EQ(sheets[0].Pages.find("*:TOOLS"), std::string::npos);
  EXPECT_FALSE(sheets[0].AboutFirst);
  EXPECT_EQ(Store().GetValueSize(kMessage), -1);
}

TEST_F(X16Launch, OtherMessagesAreTakenWithoutEffect) {
  Store().WriteDword(kMessage, 2u);
  EXPECT_TRUE(HasPage("*:PAGE_SETUP"));
  EXPECT_TRUE(sheets[0].AboutFirst);
  EXPECT_EQ(Store().GetValueSize(kMessage), -1);
}

TEST_F(X16Launch, NoMessageStaysNone) {
  Store().WriteDword(kMessage, 0u);
  Serve();
  EXPECT_EQ(Store().GetValueSize(kMessage), 4);
}

TEST_F(X16Launch, PrinterThatCannotBeOpenedIsAFailure) {
  for (const char* name : {"No Such Printer", ""}) {
    calls.clear();
    Key.WriteString("Printer", name);
    Serve();
    EXPECT_EQ(calls, (std::vector<std::string>{"send 1025", "post 1027 2"})) << name;
  }
}

TEST_F(X16Launch, RequestThatNobodyWroteIsAFailure) {
  ServeLaunch(&channelWindow, "Other", NoteSheet);
  EXPECT_EQ(calls, (std::vector<std::string>{"send 1025", "post 1027 2"}));
}

TEST_F(X16Launch, WithoutSheetsItIsAFailure) {
  ServeLaunch(&channelWindow, kChannel, nullptr);
  EXPECT_EQ(calls, (std::vector<std::string>{"send 1025", "post 1027 2"}));
}

TEST_F(X16Launch, ExportServesTheNamedChannel) {
  X16_DocumentProperties(nullptr, nullptr, kChannel);
  EXPECT_TRUE(lookedFor == kChannel);
  EXPECT_EQ(calls.front(), "send 1025");
  EXPECT_EQ(calls.back(), "post 1027 2");
}

TEST_F(X16Launch, MissingChannelEndsTheCallAtOnce) {
  const std::string before = StoreDump();
  X16_DocumentProperties(nullptr, nullptr, "Nobody");
  X16_DocumentProperties(nullptr, nullptr, nullptr);
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(DumpDifference(before, StoreDump()), "");
}

}  // namespace
}  // namespace ostvt::test
