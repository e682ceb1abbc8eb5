// Settings written to a file: what is in it, and that it is there whole or not at all.
#include <filesystem>
#include <random>

#include "settings/SettingsFile.h"
#include "tests/settings/SettingsFileFixture.h"
#include "tests/support/ChildProcess.h"

#ifdef __linux__
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace ostvt::test {
namespace {

constexpr char kHead[] = "<driver version='6.6'>\r\n\r\n";

class SettingsExport : public SettingsFileTest {
 protected:
  // The lines that begin a record, in their order.
  static std::string Openings(const std::string& text) {
    std::string openings;
    for (size_t at = 0; at < text.size();) {
      const size_t end = text.find("\r\n", at);
      const std::string line = text.substr(at, end - at);
      if (line[0] == '<' && line[1] != '/') openings += line;
      at = end + 2;
    }
    return openings;
  }
  int FilesBeside() const {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Files.Path())) {
      (void)entry;
      ++count;
    }
    return count;
  }
};

TEST_F(SettingsExport, FileBeginsWithItsVersionAndHasNoEnd) {
  EXPECT_EQ(kHead, Exported(0));
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", CountsOf(Written));
  const std::string text = Exported(kAllSections);
  EXPECT_EQ(0u, text.find(kHead));
  EXPECT_EQ(std::string::npos, text.find("</driver>"));
}

TEST_F(SettingsExport, SectionsStandInTheirOrder) {
  FillAll();
  EXPECT_EQ(
      "<driver version='6.6'><stock><stock><stock><preset default='true'><preset><preset>"
      "<font type='Bar Code'><font type='RFID'><font type='Alias'><font type='Substitution'>"
      "<font type='Downloaded'><font type='Optional'><options model='Ostrel Test'><network>",
      Openings(Exported(kAllSections)));
  EXPECT_EQ("3 2 2 1 1 1 1 1 1 1", CountsOf(Written));
}

TEST_F(SettingsExport, EveryRecordEndsWithAnEmptyLine) {
  FillAll();
  const std::string text = Exported(kAllSections);
  size_t records = 0;
  for (size_t at = 0; (at = text.find("\r\n</", at)) != std::string::npos; ++records) {
    at = text.find("\r\n", at + 2);
    EXPECT_EQ("\r\n\r\n", text.substr(at, 4));
  }
  EXPECT_EQ(14u, records);
}

TEST_F(SettingsExport, EachBitChoosesItsSectionAlone) {
  FillAll();
  const std::pair<uint32_t, const char*> sections[] = {
      {0x001, "<stock><stock><stock>"},
      {0x002, "<preset><preset>"},
      {0x004, "<font type='Bar Code'><font type='RFID'>"},
      {0x008, ""},
      {0x010, "<font type='Alias'>"},
      {0x020, "<font type='Substitution'>"},
      {0x040, "<font type='Downloaded'>"},
      {0x080, "<font type='Optional'>"},
      {0x100, "<options model='Ostrel Test'>"},
      {0x200, "<preset default='true'>"},
      {0x400, "<network>"},
      {0x800, ""}};
  for (const auto& [bit, openings] : sections)
    EXPECT_EQ(std::string("<driver version='6.6'>") + openings, Openings(Exported(bit))) << bit;
}

TEST_F(SettingsExport, TextIsUtf8) {
  FillAll();
  EXPECT_NE(std::string::npos, Exported(kSectionStock).find("Name=\xE6\xA0\x87 = caf\xC3\xA9\r\n"));
  EXPECT_NE(std::string::npos, Exported(kSectionPresets)
                                   .find("Name=Stra\xC3\x9F"
                                         "e\r\n"));
}

TEST_F(SettingsExport, StockAndPresetsAreLoadedForIt) {
  FillAll();
  Reopen();
  ASSERT_FALSE(Session->StockLoaded || Session->PresetsLoaded);
  Exported(kSectionStock | kSectionPresets);
  EXPECT_EQ("3 2 0 0 0 0 0 0 0 0", CountsOf(Written));
}

TEST_F(SettingsExport, TagsOfAModelThatWritesNoneStayBehind) {
  Install(SmallModelText());
  auto tag = std::make_unique<RFIDFont>();
  tag->SetName("Tag");
  Session->DataFonts.AddOrReplace(std::move(tag));
  EXPECT_EQ(kHead, Exported(kSectionDataFonts));
  EXPECT_EQ(0, +Written.DataFonts);
}

TEST_F(SettingsExport, WhatIsNotInTheStoreYetIsInTheFileButForOptions) {
  AddStockTo(&Session->GetStock(), "Unsaved");
  DriverOptions options;
  options.Bind(Session->Model);
  options.SetQueryInterval(2500);
  const std::string text = Exported(kSectionStock | kSectionOptions);
  EXPECT_NE(std::string::npos, text.find("Name=Unsaved"));
  EXPECT_EQ(std::string::npos, text.find("Query Interval"));
}

TEST_F(SettingsExport, ExportChangesNothing) {
  FillAll();
  Reopen();
  const std::string before = StoreDump();
  Exported(kAllSections);
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(SettingsExport, ResultMayBeNull) {
  FillAll();
  EXPECT_TRUE(Session->ExportSettings(Files.Path("out.sds").c_str(), kAllSections, nullptr));
  EXPECT_EQ(Files.Get("out.sds"), Exported(kAllSections, "second.sds"));
}

TEST_F(SettingsExport, CountBeyondTheFieldIsItsLargest) {
  for (int i = 0; i < 65536; ++i) {
    auto alias = std::make_unique<FontMapping>();
    alias->Kind = kFontAlias;
    Session->FontMappings.Add(std::move(alias));
  }
  Exported(kSectionAliasFonts);
  EXPECT_EQ("0 0 0 65535 0 0 0 0 0 0", CountsOf(Written));
}

TEST_F(SettingsExport, SessionWithoutAModelWritesNothing) {
  DriverSession session;
  Written.Stock = 7;
  EXPECT_FALSE(session.ExportSettings(Files.Path("out.sds").c_str(), kAllSections, &Written));
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", CountsOf(Written));
  EXPECT_EQ(0, FilesBeside());
}

TEST_F(SettingsExport, PathThatCannotBeWrittenIsAnExportOfNothing) {
  FillAll();
  std::filesystem::create_directory(Files.Path("folder"));
  for (const char* name : {"no folder/out.sds", "folder"}) {
    Written.Stock = 7;
    EXPECT_FALSE(Session->ExportSettings(Files.Path(name).c_str(), kAllSections, &Written)) << name;
    EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", CountsOf(Written)) << name;
  }
  EXPECT_FALSE(Session->ExportSettings("", kAllSections, &Written));
  EXPECT_EQ(1, FilesBeside());
}

TEST_F(SettingsExport, EarlierFileGivesWayAsAWhole) {
  Files.Put("out.sds", std::string(100000, 'x'));
  EXPECT_EQ(kHead, Exported(0));
  EXPECT_EQ(1, FilesBeside());
}

TEST_F(SettingsExport, FileThatWasNotCommittedLeavesTheOldOne) {
  Files.Put("out.sds", "old");
  {
    SettingsFileWriter file(Files.Path("out.sds").c_str());
    file.WriteText(std::string(5000, 'x').c_str());
    EXPECT_EQ("old", Files.Get("out.sds"));
    EXPECT_EQ(2, FilesBeside());
  }
  EXPECT_EQ("old", Files.Get("out.sds"));
  EXPECT_EQ(1, FilesBeside());
}

#ifdef __linux__

TEST_F(SettingsExport, FullDiskLeavesTheOldFile) {
  FillAll();
  const std::string old = Exported(kSectionOptions);
  for (int i = 0; i < 500; ++i)
    AddStockTo(&Session->GetStock(), OString("S") + OString::FromInt(i, 4));
  // No byte, some, and all but the last buffer's.
  const std::string whole = Exported(kAllSections, "whole.sds");
  for (const size_t room : {size_t{0}, size_t{5000}, whole.size() - 1}) {
    const pid_t child = Fork([&] {
      signal(SIGXFSZ, SIG_IGN);
      const rlimit limit = {room, room};
      setrlimit(RLIMIT_FSIZE, &limit);
      ExportResult written = {};
      const bool done =
          Session->ExportSettings(Files.Path("out.sds").c_str(), kAllSections, &written);
      _exit(done || CountAll(written) != 0);
    });
    EXPECT_EQ(0, ExitCodeOf(child)) << room;
    EXPECT_EQ(old, Files.Get("out.sds")) << room;
    EXPECT_EQ(2, FilesBeside()) << room;
  }
}

TEST_F(SettingsExport, KillInTheMiddleLeavesTheOldFileOrTheNewOne) {
  const auto fill = [this](int kind) {
    StockList& stock = Session->GetStock();
    stock.Build(Session->Model);
    for (int i = 0; i < 200; ++i)
      AddStockTo(&stock, OString(kind ? "Second" : "First") + OString::FromInt(i, 4));
  };
  std::string contents[2];
  for (int kind = 0; kind < 2; ++kind) {
    fill(kind);
    contents[kind] = Exported(kAllSections);
  }
  std::mt19937 random(99);
  for (int round = 0; round < 24; ++round) {
    const pid_t child = Fork([&] {
      for (int turn = round;; ++turn) {
        fill(turn % 2);
        if (!Session->ExportSettings(Files.Path("out.sds").c_str(), kAllSections, nullptr))
          _exit(1);
      }
    });
    usleep(static_cast<useconds_t>(2000 + random() % 60000));
    kill(child, SIGKILL);
    ASSERT_EQ(-1, ExitCodeOf(child));
    const std::string left = Files.Get("out.sds");
    ASSERT_TRUE(left == contents[0] || left == contents[1]) << round;
  }
}

TEST_F(SettingsExport, RightsOfTheOldFileStayAndALinkToIt) {
  Files.Put("real.sds", "old");
  ASSERT_EQ(0, chmod(Files.Path("real.sds").c_str(), 0640));
  ASSERT_EQ(0, symlink("real.sds", Files.Path("out.sds").c_str()));
  EXPECT_EQ(kHead, Exported(0));
  EXPECT_EQ(kHead, Files.Get("real.sds"));
  struct stat status;
  ASSERT_EQ(0, lstat(Files.Path("out.sds").c_str(), &status));
  EXPECT_TRUE(S_ISLNK(status.st_mode));
  ASSERT_EQ(0, stat(Files.Path("real.sds").c_str(), &status));
  EXPECT_EQ(0640u, status.st_mode & 07777);
}

TEST_F(SettingsExport, DeviceIsNotReplacedByAFile) {
  EXPECT_FALSE(Session->ExportSettings("/dev/null", kAllSections, &Written));
  struct stat status;
  ASSERT_EQ(0, stat("/dev/null", &status));
  EXPECT_TRUE(S_ISCHR(status.st_mode));
}

#endif

}  // namespace
}  // namespace ostvt::test
