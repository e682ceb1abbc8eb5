#include "core/OStream.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ostvt {
namespace {

// Keeps each block that comes through the buffer; takes at most `Limit` bytes of one.
class RecordingStream : public OStream {
 public:
  ~RecordingStream() override { RecordingStream::Flush(); }
  uint32_t RawWrite(const void* data, uint32_t size) override {
    if (size > Limit) size = Limit;
    Blocks.emplace_back(static_cast<const char*>(data), size);
    return size;
  }
  std::string Text() {
    Flush();
    std::string all;
    for (const std::string& block : Blocks) all += block;
    return all;
  }

  std::vector<std::string> Blocks;
  uint32_t Limit = 0xFFFFFFFF;
};

uint32_t Write(OStream& stream, const std::string& bytes) {
  return stream.Write(bytes.data(), static_cast<uint32_t>(bytes.size()));
}

TEST(OStream, StartsWithABufferOf1024AndCodePage0) {
  OStream stream;
  EXPECT_EQ(1024u, stream.BufferSize);
  EXPECT_EQ(0u, stream.BufferFill);
  EXPECT_EQ(0u, stream.CodePage);
}

TEST(OStream, BaseWritesNothing) {
  OStream stream;
  EXPECT_EQ(0u, stream.RawWrite("abc", 3));
  EXPECT_EQ(3u, Write(stream, "abc"));
  EXPECT_EQ(0u, stream.Flush());
}

TEST(OStream, SmallWritesWaitInTheBuffer) {
  RecordingStream stream;
  EXPECT_EQ(600u, Write(stream, std::string(600, 'a')));
  EXPECT_EQ(423u, Write(stream, std::string(423, 'b')));
  EXPECT_TRUE(stream.Blocks.empty());
  EXPECT_EQ(1023u, stream.BufferFill);
}

TEST(OStream, FullBufferIsPassedOnAtOnce) {
  RecordingStream stream;
  EXPECT_EQ(1024u, Write(stream, std::string(1024, 'a')));
  ASSERT_EQ(1u, stream.Blocks.size());
  EXPECT_EQ(1024u, stream.Blocks[0].size());
  EXPECT_EQ(0u, stream.BufferFill);
}

TEST(OStream, LongWriteGoesThroughTheBufferPieceByPiece) {
  RecordingStream stream;
  std::string bytes;
  for (int i = 0; i < 2500; ++i) bytes.push_back(static_cast<char>(i * 31));
  EXPECT_EQ(2500u, Write(stream, bytes));
  ASSERT_EQ(2u, stream.Blocks.size());
  EXPECT_EQ(452u, stream.BufferFill);
  EXPECT_EQ(bytes, stream.Text());
}

TEST(OStream, WriteGivesZeroWhenTheFullBufferIsNotTakenWhole) {
  RecordingStream stream;
  stream.Limit = 1023;
  EXPECT_EQ(0u, Write(stream, std::string(1030, 'a')));
  EXPECT_EQ(0u, stream.BufferFill);
}

TEST(OStream, FlushEmptiesTheBufferWhateverHappens) {
  RecordingStream stream;
  stream.Limit = 0;
  Write(stream, "abc");
  EXPECT_EQ(0u, stream.Flush());
  EXPECT_EQ(0u, stream.BufferFill);
  stream.Limit = 10;
  EXPECT_EQ(0u, stream.Flush());
  EXPECT_EQ(1u, stream.Blocks.size());
}

TEST(OStream, BufferSizeZeroWritesAtOnce) {
  RecordingStream stream;
  stream.BufferSize = 0;
  stream.Limit = 2;
  EXPECT_EQ(2u, Write(stream, "abc"));
  ASSERT_EQ(1u, stream.Blocks.size());
  EXPECT_EQ("ab", stream.Blocks[0]);
}

TEST(OStream, WritesTextAndNumbersWithoutTerminators) {
  RecordingStream stream;
  stream.WriteText("a");
  stream.WriteInt(-120);
  stream.WriteInt(0);
  stream.WriteString("b");
  stream.WriteNewLine();
  EXPECT_EQ("a-1200b\r\n", stream.Text());
}

TEST(OStream, NullTextWritesNothing) {
  RecordingStream stream;
  stream.WriteText(nullptr);
  stream.WriteString(OString());
  EXPECT_EQ("", stream.Text());
}

TEST(OStream, TextGoesOutInTheStreamsCodePage) {
  RecordingStream stream;
  stream.CodePage = kCodePageUtf8;
  stream.WriteString(u"\u00E9\u20AC");
  EXPECT_EQ("\xC3\xA9\xE2\x82\xAC", stream.Text());
}

TEST(OStream, WritingDoesNotChangeTheText) {
  RecordingStream stream;
  stream.CodePage = kCodePageUtf8;
  OString text("\xE9");
  text.SetCodePage(1252);
  const OString copy = text;
  stream.WriteString(text);
  EXPECT_EQ("\xC3\xA9", stream.Text());
  EXPECT_EQ(1252u, text.GetCodePage());
  EXPECT_STREQ("\xE9", text.GetNarrow());
  EXPECT_EQ(1252u, copy.GetCodePage());
}

TEST(OStream, OneTextMayBeLongerThanTheBuffer) {
  RecordingStream stream;
  const std::string longText(5000, 'q');
  stream.WriteText(longText.c_str());
  EXPECT_EQ(longText, stream.Text());
}

}  // namespace
}  // namespace ostvt
