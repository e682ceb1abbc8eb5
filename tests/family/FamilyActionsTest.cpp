// The family's commands and its rule for names.
#include "family/FamilyDriverSession.h"
#include "tests/comm/JobRecorder.h"
#include "tests/settings/FakeWindows.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

class FamilyActions : public SettingsTest {
 protected:
  void Open(const std::string& features) {
    ModelText text;
    text.Features = features;
    AddPrinter(text);
    Session.reset(CreateDriverSession());
    Session->NoShadowPush = true;
    Session->Initialize(nullptr, nullptr, 0, Printer->Name());
    ASSERT_NE(nullptr, Session->Model);
  }
  void TearDown() override {
    Session.reset();
    SettingsTest::TearDown();
  }
  uint32_t Flags(int32_t action) {
    ActionContext context{Session.get(), nullptr};
    return Session->GetActionFlags(&context, action);
  }
  bool Do(int32_t action) {
    ActionContext context{Session.get(), nullptr};
    return Session->DoAction(&context, action);
  }

  JobRecorder Recorder;
  std::unique_ptr<DriverSession> Session;
};

TEST_F(FamilyActions, FlagsWithU1Commands) {
  Open("~Commands.U1=true\n");
  EXPECT_EQ(1u, Flags(3));
  EXPECT_EQ(5u, Flags(7));
  EXPECT_EQ(1u, Flags(10));
  EXPECT_EQ(3u, Flags(39));
  EXPECT_EQ(7u, Flags(46));
}

TEST_F(FamilyActions, WithoutU1CommandsTheBaseDecides) {
  Open("");
  EXPECT_EQ(1u, Flags(3));
  EXPECT_EQ(0u, Flags(7));
  EXPECT_EQ(0u, Flags(10));
  EXPECT_EQ(3u, Flags(39));
  EXPECT_EQ(0u, Flags(46));
  EXPECT_FALSE(Do(7));
  EXPECT_FALSE(Do(10));
  EXPECT_TRUE(Recorder.Calls.empty());
}

TEST_F(FamilyActions, DialogsAreTheFamilysOwn) {
  Open("~Commands.U1=true\n");
  FakeWindows windows;
  Session->Windows = &windows;
  EXPECT_TRUE(Do(39));
  EXPECT_TRUE(Do(46));
  EXPECT_EQ((std::vector<std::string>{"dialog *:^INFORMATION", "dialog DLG_POWERMANAGEMENT"}),
            windows.Calls);
  windows.Result = 0;
  EXPECT_FALSE(Do(39));
  Session->Windows = nullptr;
  EXPECT_FALSE(Do(46));
}

TEST_F(FamilyActions, CommandIsAJobOfItsOwn) {
  Open("~Commands.U1=true\n");
  Session->Resources = std::make_unique<NumberedTexts>();
  EXPECT_TRUE(Do(3));
  EXPECT_EQ((std::vector<std::string>{"create Test Printer", "start [2452]", "page", "packet 0",
                                      "packet 25", "end page", "end", "delete"}),
            Recorder.Calls);
  EXPECT_EQ("! 0 0 0 0 1\r\nCUT\r\nPRINT\r\n", Recorder.Bytes());
  Recorder.Calls.clear();
  EXPECT_TRUE(Do(7));
  EXPECT_EQ("start [2453]", Recorder.Calls.at(1));
}

// Whether or not it tells the server anything: else this user's printer would stay blocked.
TEST_F(FamilyActions, BlockOfTheSessionsJobsEndsWithTheSession) {
  constexpr char kBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";
  Open("");
  ASSERT_TRUE(Session->NoShadowPush);
  EXPECT_TRUE(Do(3));
  EXPECT_EQ(1, Store().ReadByte(kBlocked, 0));
  Session.reset();
  EXPECT_EQ(-1, Store().GetValueSize(kBlocked));
}

TEST_F(FamilyActions, ResetAndDiagnosticsSendTheirLines) {
  Open("~Commands.U1=true\n");
  EXPECT_TRUE(Do(7));
  EXPECT_EQ("! U1 do \"device.reset\"\r\n", Recorder.Bytes());
  Recorder.Packets.clear();
  EXPECT_TRUE(Do(10));
  EXPECT_EQ("! U1 do \"test.print_diags\"\r\n", Recorder.Bytes());
}

TEST_F(FamilyActions, JobThatCannotBeOpenedIsSentNothing) {
  Open("~Commands.U1=true\n");
  Recorder.JobId = 0;
  EXPECT_FALSE(Do(3));
  EXPECT_EQ("", Recorder.Bytes());
  EXPECT_EQ("delete", Recorder.Calls.back());
  EXPECT_EQ(0, Session->Port->GetFill());
}

TEST_F(FamilyActions, RefusedBytesAreAFailure) {
  Open("");
  Recorder.EscapeResult = 0;
  EXPECT_FALSE(Do(3));
}

TEST_F(FamilyActions, SessionWithoutAModelSendsNothing) {
  Session.reset(CreateDriverSession());
  EXPECT_EQ(1u, Flags(3));
  EXPECT_EQ(0u, Flags(7));
  EXPECT_FALSE(Do(3));
  EXPECT_FALSE(Do(7));
  EXPECT_TRUE(Recorder.Calls.empty());
}

TEST_F(FamilyActions, PortIsTheSessionsOwn) {
  Open("");
  ASSERT_NE(nullptr, Session->Port);
  EXPECT_EQ(Session.get(), Session->Port->Owner);
  EXPECT_EQ(nullptr, Session->Port->OwnerPrinter);
}

// Texts by their numbers.
class Texts : public ResourceContext {
 public:
  OString GetString(int32_t number) override {
    if (number == 4450) return "The name must have %1 to %2 characters.";
    return number == 4451 ? "wrong character" : number == 4454 ? "caption" : "?";
  }
};

class FamilyNames : public ::testing::Test {
 protected:
  FamilyNames() : Session(CreateDriverSession()) { Session->Resources.reset(new Texts); }
  // What became of a name: "" when it was refused, with the message in Request.
  std::string Checked(const OString& name) {
    Request = NameRequest();
    Request.value = name;
    Request.result = "before";
    if (Session->ValidateFileName(&Request)) {
      EXPECT_TRUE(Request.message.IsEmpty());
      EXPECT_TRUE(Request.value == Request.result);
      return Request.result.GetNarrow();
    }
    EXPECT_TRUE(Request.value == name);
    EXPECT_STREQ("before", Request.result.GetNarrow());
    EXPECT_STREQ("caption", Request.caption.GetNarrow());
    return "";
  }
  bool IsLengthRefused(const OString& name) {
    return Checked(name).empty() && Request.message == "The name must have 1 to 128 characters.";
  }
  bool IsCharacterRefused(const OString& name) {
    return Checked(name).empty() && Request.message == "wrong character";
  }

  std::unique_ptr<DriverSession> Session;
  NameRequest Request;
};

TEST_F(FamilyNames, LettersBecomeCapitals) {
  EXPECT_EQ("A-B", Checked("a-b"));
  EXPECT_EQ("ABCXYZ0189.-_", Checked("abcxyz0189.-_"));
}

TEST_F(FamilyNames, WhiteSpaceAroundANameGoes) { EXPECT_EQ("LABEL", Checked(" \t\r\nLabel\n ")); }

TEST_F(FamilyNames, NameOfBlanksAloneIsRefusedByItsLength) {
  EXPECT_TRUE(IsLengthRefused("   "));
  EXPECT_TRUE(IsLengthRefused(""));
}

TEST_F(FamilyNames, LengthCountsBehindTrimming) {
  const std::string longest(128, 'A');
  EXPECT_EQ(longest, Checked((longest + " ").c_str()));
  EXPECT_EQ(longest, Checked(longest.c_str()));
  EXPECT_TRUE(IsLengthRefused((longest + "A").c_str()));
}

TEST_F(FamilyNames, LengthCountsCharactersNotBytes) {
  EXPECT_TRUE(IsCharacterRefused(std::u16string(128, u'\u00E4').c_str()));
  EXPECT_TRUE(IsLengthRefused(std::u16string(129, u'\u00E4').c_str()));
}

TEST_F(FamilyNames, OtherCharactersAreRefused) {
  for (const char16_t* name : {u"A B", u"A/B", u"A*", u"\u00C4", u"\u0131", u"A\tB", u"A+"})
    EXPECT_TRUE(IsCharacterRefused(name));
}

TEST_F(FamilyNames, WithoutTextsARefusalIsSilent) {
  Session->Resources.reset();
  NameRequest request;
  EXPECT_FALSE(Session->ValidateFileName(&request));
  EXPECT_TRUE(request.message.IsEmpty());
  EXPECT_TRUE(request.caption.IsEmpty());
}

}  // namespace
}  // namespace ostvt::test
