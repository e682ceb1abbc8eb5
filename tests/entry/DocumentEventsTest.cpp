#include <gtest/gtest.h>

#include <vector>

#include "entry/Exports.h"
#include "platform/PrintContext.h"
#include "tests/support/GuardedBlock.h"

namespace ostvt::test {
namespace {

struct SentEscape {
  void* Context;
  int Number;
  std::vector<uint8_t> Input;
};
std::vector<SentEscape> sent;

int Record(platform::PrintContext context, int escape, const void* input, int inputSize, void*,
           int) {
  const auto* bytes = static_cast<const uint8_t*>(input);
  sent.push_back({context, escape, {bytes, bytes + inputSize}});
  return 1;
}

class DocumentEvents : public testing::Test {
 protected:
  void SetUp() override {
    sent.clear();
    Before = platform::SetEscapeFunction(Record);
  }
  void TearDown() override { platform::SetEscapeFunction(Before); }

  int32_t Tell(int32_t event, const void* input = nullptr, uint32_t size = 0) {
    return DrvDocumentEvent(nullptr, Context, event, size, const_cast<void*>(input), 0, nullptr);
  }
  // The flag that a job start sends.
  int StartFlag(const void* input, uint32_t size) {
    sent.clear();
    EXPECT_EQ(Tell(5, input, size), 1);
    if (sent.size() != 1 || sent[0].Number != 15041 || sent[0].Input.size() != 1) return -1;
    return sent[0].Input[0];
  }

  void* const Context = reinterpret_cast<void*>(0x1122334455667788);

 private:
  platform::EscapeFunction Before = nullptr;
};

TEST_F(DocumentEvents, Escape11Yields0AndEscape12Yields1) {
  EXPECT_EQ(Tell(11), 0);
  EXPECT_EQ(Tell(12), 1);
}

TEST_F(DocumentEvents, OnlyFourEventsAreTaken) {
  for (int32_t event : {-1, 0, 3, 4, 6, 7, 8, 9, 10, 11, 13, 14, 15, 0x10005}) {
    EXPECT_EQ(Tell(event), 0) << event;
  }
  EXPECT_TRUE(sent.empty());
  for (int32_t event : {1, 2, 5, 12}) EXPECT_EQ(Tell(event), 1) << event;
}

TEST_F(DocumentEvents, NewContextIsToldItsOwnValue) {
  EXPECT_EQ(Tell(2), 1);
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0].Context, Context);
  EXPECT_EQ(sent[0].Number, 19902);
  EXPECT_EQ(sent[0].Input, (std::vector<uint8_t>{0x88, 0x77, 0x66, 0x55, 0x44, 0x33, 0x22, 0x11}));
}

TEST_F(DocumentEvents, ShadowEventsSendNoEscape) {
  Tell(1);
  Tell(12);
  EXPECT_TRUE(sent.empty());
}

TEST_F(DocumentEvents, JobStartTellsWhetherItGoesToThePrinter) {
  DocInfo info = {};
  info.cbSize = sizeof info;
  const DocInfo* pointer = &info;
  EXPECT_EQ(StartFlag(&pointer, sizeof pointer), 1);
  info.lpszOutput = u"C:\\label.prn";
  EXPECT_EQ(StartFlag(&pointer, sizeof pointer), 0);
  EXPECT_EQ(sent[0].Context, Context);
}

TEST_F(DocumentEvents, JobStartWithoutARecordGoesToThePrinter) {
  const DocInfo* none = nullptr;
  EXPECT_EQ(StartFlag(nullptr, 0), 1);
  EXPECT_EQ(StartFlag(nullptr, 8), 1);
  EXPECT_EQ(StartFlag(&none, sizeof none), 1);
  DocInfo info = {};
  info.cbSize = sizeof info;
  info.lpszOutput = u"file";
  const DocInfo* pointer = &info;
  EXPECT_EQ(StartFlag(&pointer, 7), 1);
}

// The record says how long it is; nothing behind that is looked at.
TEST_F(DocumentEvents, JobStartWithAShortRecordGoesToThePrinter) {
  for (uint32_t size : {4u, 8u, 16u, 23u}) {
    GuardedBlock record(size, 0xFF);
    record.PutDword(0, size);
    const uint8_t* pointer = record.Data();
    EXPECT_EQ(StartFlag(&pointer, sizeof pointer), 1) << size;
  }
  GuardedBlock record(24, 0xFF);
  record.PutDword(0, 24);
  const uint8_t* pointer = record.Data();
  EXPECT_EQ(StartFlag(&pointer, sizeof pointer), 0);
  record.PutDword(0, 0xFFFFFFFF);
  EXPECT_EQ(StartFlag(&pointer, sizeof pointer), 1);
}

TEST_F(DocumentEvents, WithoutAContextTheEventsStillSucceed) {
  for (int32_t event : {1, 2, 5, 12}) {
    EXPECT_EQ(DrvDocumentEvent(nullptr, nullptr, event, 0, nullptr, 0, nullptr), 1) << event;
  }
}

TEST(QueryPrint, EveryJobMayPrint) {
  EXPECT_EQ(DevQueryPrintEx(nullptr), 1);
  GuardedBlock record(8, 0);
  EXPECT_EQ(DevQueryPrintEx(record.Data()), 1);
}

TEST(MonitorInterface, IsNoMonitor) { EXPECT_EQ(MonitorInterface(), 0); }

}  // namespace
}  // namespace ostvt::test
