// Records of settings files: lines with values, and the text of a branch.
#include "model/TextRecords.h"

#include <gtest/gtest.h>

#include "core/OFile.h"
#include "model/BranchRecords.h"
#include "tests/support/TempDirectory.h"

namespace ostvt::test {
namespace {

class TextRecords : public ::testing::Test {
 protected:
  // "<" opening, "K=V" value, ">" closing, each with a "|" behind it.
  std::string Read(const std::string& text) {
    using Line = TextRecordReader::Line;
    OFile file(Files.Put("in.sds", text).c_str(), kFileShareAll);
    TextRecordReader reader(file, "stock", nullptr);
    std::string seen;
    for (Line line = reader.Next(); line != Line::kEnd; line = reader.Next()) {
      if (line == Line::kOpening) {
        seen += "<|";
        if (reader.Text == "<stock skip>") reader.Skip();
      } else if (line == Line::kClosing) {
        seen += ">|";
      } else {
        seen += std::string(reader.Key.GetNarrow()) + "=" + reader.Value.GetNarrow() + "|";
      }
    }
    return seen;
  }
  std::string Written(const char* key, const OString& value) {
    {
      OFile file(Files.Path("out.sds").c_str(), kFileWrite | kFileCreate);
      WriteRecordValue(file, key, value);
    }
    return Files.Get("out.sds");
  }
  TempDirectory Files;
};

TEST_F(TextRecords, LinesOfARecordAreTold) {
  EXPECT_EQ("<|Name=A|Data=x=y|>|", Read("<stock>\r\nName=A\r\nData=x=y\r\n</stock>\r\n"));
}

TEST_F(TextRecords, BlanksAroundALineDoNotCount) {
  EXPECT_EQ("<|Name= A|>|", Read(" \t<stock>\n\n \tName= A \t\r\n  </stock>\t"));
}

TEST_F(TextRecords, LinesOutsideRecordsArePassedOver) {
  EXPECT_EQ("<|A=1|>|", Read("B=2\n</stock>\n<preset>\nC=3\n</preset>\n<stock>\nA=1\n</stock>\n"
                             "D=4\n</stock>\n"));
}

TEST_F(TextRecords, LineWithoutAKeyIsNoValue) {
  EXPECT_EQ("<|A=|>|", Read("<stock>\n=1\nB\nA=\n</stock>\n"));
}

TEST_F(TextRecords, OpeningEndsARecordThatWasNotClosed) {
  EXPECT_EQ("<|A=1|<|B=2|>|", Read("<stock>\nA=1\n<stock>\nB=2\n</stock>\n"));
  EXPECT_EQ("<|A=1|", Read("<stock>\nA=1\n<stock model='other'>\nB=2\n</stock>\n"));
}

TEST_F(TextRecords, SkippedRecordHasNoLines) {
  EXPECT_EQ("<|<|A=1|>|", Read("<stock skip>\nB=2\n</stock>\n<stock>\nA=1\n</stock>\n"));
}

TEST_F(TextRecords, RecordForOneModelIsNotForNone) {
  EXPECT_EQ("<|>|", Read("<stock driver='ost'>\nA=1\n</stock>\n<stock>\n</stock>\n"));
}

TEST_F(TextRecords, FileIsReadFromItsStart) {
  OFile file(Files.Put("in.sds", "<stock>\nA=1\n</stock>\n").c_str(), kFileShareAll);
  OString line;
  ASSERT_TRUE(file.ReadLine(line));
  TextRecordReader reader(file, "stock", nullptr);
  EXPECT_EQ(TextRecordReader::Line::kOpening, reader.Next());
}

// Behind the line end anything could follow, a closing line among them.
TEST_F(TextRecords, LineEndsInAValueAreWrittenAsBlanks) {
  EXPECT_EQ("Name=one  two three four\r\n", Written("Name", "one\r\ntwo\nthree\rfour"));
  EXPECT_EQ("Name=A </stock> \r\n", Written("Name", "A\n</stock>\n"));
}

class BranchRecords : public TextRecords {
 protected:
  // The lines of each record, parted by ";", the records by "|".
  std::string ReadBranches(const std::string& text) {
    OFile file(Files.Put("in.sds", text).c_str(), kFileShareAll);
    BranchRecordReader reader(file, "options", "Ostrel", "ost");
    std::string seen;
    for (OStringArray lines; reader.Next(&lines); seen += "|") {
      for (int32_t i = 0; i < lines.Count; ++i) seen += std::string(lines[i].GetNarrow()) + ";";
    }
    return seen;
  }
};

TEST_F(BranchRecords, SectionsArePartedByEmptyLines) {
  EXPECT_EQ("[a];\"v\"=1;;[b];;[c];;|",
            ReadBranches("<options>\n[a]\n\n \"v\"=1\n[b]\n[c]\n</options>\n"));
}

TEST_F(BranchRecords, RecordWithoutLinesHasTheEmptyOne) {
  EXPECT_EQ(";|", ReadBranches("<options>\n</options>\n"));
}

TEST_F(BranchRecords, SecondOpeningInAnUnclosedRecordStartsAnew) {
  EXPECT_EQ("[b];;|", ReadBranches("<options>\n[a]\n<options>\n[b]\n</options>\n"));
  EXPECT_EQ("", ReadBranches("<options>\n[a]\n<options model='x'>\n[b]\n</options>\n"));
}

TEST_F(BranchRecords, OnlyRecordsForTheModelAreRead) {
  EXPECT_EQ("[a];;|[c];;|", ReadBranches("<options model='Ost*'>\n[a]\n</options>\n"
                                         "<options driver='x'>\n[b]\n</options>\n"
                                         "[x]\n<options>\n[c]\n</options>\n<options>\n[d]\n"));
}

}  // namespace
}  // namespace ostvt::test
