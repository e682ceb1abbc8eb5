// Which records of a text are read, for any kind of font.
#include "fonts/FontText.h"

#include "tests/fonts/FontFixture.h"

namespace ostvt::test {
namespace {

// Records as "[key=value;...]"; "!" in front of one that is taken in.
class Recorder : public FontTextSink {
 public:
  void Open() override { Lines.clear(); }
  void TakeValue(const OString& key, const OString& value) override {
    Lines += std::string(key.GetNarrow()) + "=" + value.GetNarrow() + ";";
  }
  bool Close() override {
    Seen += "[" + Lines + "]";
    return Lines.find("refuse") == std::string::npos;
  }

  std::string Seen;
  std::string Lines;
};

class FontText : public FontTest {
 protected:
  std::string Read(const std::string& text) {
    Recorder recorder;
    Count = ReadFontText(File(text), Model(), "Alias", &recorder);
    return recorder.Seen;
  }
  std::string Record(const std::string& value, const std::string& attributes = "") {
    return Block("Alias", "A=" + value + "\r\n", attributes);
  }
};

TEST_F(FontText, WriterWritesAKeyALine) {
  EXPECT_EQ("<font type='Alias'>\r\nA=b=c\r\nE=\r\n</font>\r\n\r\n", Written([](OStream& stream) {
              FontTextWriter writer(stream);
              writer.Open("Alias");
              writer.Write("A", "b=c");
              writer.Write("E", "");
              writer.WriteUnlessEmpty("N", "");
              writer.Close();
              return 1;
            }));
}

TEST_F(FontText, LineEndsInAValueAreWrittenAsBlanks) {
  EXPECT_EQ("A=b  </font>   C=d\r\n", Written([](OStream& stream) {
              FontTextWriter(stream).Write("A", "b\r\n</font>\n\r\nC=d");
              return 1;
            }));
}

TEST_F(FontText, RecordsOfOtherKindsAreSkipped) {
  EXPECT_EQ("[A=1;][A=2;]",
            Read(Record("1") + Block("Optional", "A=x\r\n") + Block("alias", "A=x\r\n") +
                 "<stock>\r\nA=x\r\n</stock>\r\n" + "<font>\r\nA=x\r\n</font>\r\n" + Record("2")));
  EXPECT_EQ(2, Count);
}

TEST_F(FontText, DoubleQuotesAreNotRecognised) {
  EXPECT_EQ("", Read("<font type=\"Alias\">\r\nA=1\r\n</font>\r\n"));
}

TEST_F(FontText, TypeIsFoundBehindOtherAttributes) {
  EXPECT_EQ("[A=1;]", Read("<font driver='ost' type='Alias'>\r\nA=1\r\n</font>\r\n"));
}

TEST_F(FontText, ModelListAppliesInAnyCaseAndTheDriverBesideItHasNoEffect) {
  // The model is "Ostrel Test", its family "ost".
  EXPECT_EQ(
      "[A=1;][A=2;][A=3;]",
      Read(Record("1", " model='O*;B' driver='xyz'") + Record("2", " model=' x ; oSTREL t?ST '") +
           Record("3", " driver='abc;OS?' model=''") + Record("4", " model='B;C' driver='ost'") +
           Record("5", " model='Ostrel'") + Record("6", " driver='xyz'")));
  EXPECT_EQ(3, Count);
}

TEST_F(FontText, EmptyListsApply) { EXPECT_EQ("[A=1;]", Read(Record("1", " model='' driver=''"))); }

TEST_F(FontText, LinesAreStrippedAndSplitAtTheFirstEqualsSign) {
  EXPECT_EQ("[A =  b=c;k=;]",
            Read("\t<font type='Alias'> \r\n\r\n  A =  b=c \t\r\n=x\r\ny\r\nk=\n </font> "));
}

TEST_F(FontText, LastLineNeedsNoLineEnd) {
  EXPECT_EQ("[A=1;]", Read("<font type='Alias'>\nA=1\n</font>"));
}

TEST_F(FontText, RecordThatIsNotClosedIsForgotten) {
  EXPECT_EQ("[A=2;]", Read("<font type='Alias'>\r\nA=1\r\n" + Record("2") +
                           "<font type='Alias'>\r\nA=3\r\n" + Block("Optional", "A=4\r\n") +
                           "A=5\r\n</font>\r\n<font type='Alias'>\r\nA=6\r\n"));
}

TEST_F(FontText, OnlyWhatIsTakenInCounts) {
  EXPECT_EQ("[A=1;][A=refuse;]", Read(Record("1") + Record("refuse")));
  EXPECT_EQ(1, Count);
}

TEST_F(FontText, WholeFileIsRead) {
  Recorder recorder;
  OFile& file = File(Record("1"));
  file.Seek(0, platform::FileOrigin::kEnd);
  EXPECT_EQ(1, ReadFontText(file, Model(), "Alias", &recorder));
  OFile closed;
  EXPECT_EQ(0, ReadFontText(closed, Model(), "Alias", &recorder));
}

TEST_F(FontText, WithoutAModelOnlyRecordsForAllAreRead) {
  Recorder recorder;
  EXPECT_EQ(
      1, ReadFontText(File(Record("1") + Record("2", " model='?*'") + Record("3", " driver='ost'")),
                      nullptr, "Alias", &recorder));
  EXPECT_EQ("[A=1;]", recorder.Seen);
}

}  // namespace
}  // namespace ostvt::test
