#include "companions/netmon/AnswerStore.h"

#include <gtest/gtest.h>

#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

using netmon::AnswerStore;

class AnswerStoreTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Spooled.IsReady()); }

  TestPrinter Spooled;  // for its store
  AnswerStore Answers{u"Printer"};
};

TEST_F(AnswerStoreTest, AnyByteIsKept) {
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += static_cast<char>(i);
  EXPECT_TRUE(Answers.Keep("Q", 1, bytes));
  EXPECT_EQ(bytes, AnswerStore(u"Printer").Find("Q"));
}

TEST_F(AnswerStoreTest, NamesOfAnyBytesAreNamesOfTheirOwn) {
  const std::string names[] = {"",      "/",        "a/b",    "a\\b", "a:b",
                               "a%2Fb", "\x80\x81", "\x80?",  "a%",   std::string(255, '\xFF'),
                               "A*",    "..",       "\r\n\t", " "};
  for (const std::string& name : names) ASSERT_TRUE(Answers.Keep(name, 1, "answer to " + name));
  for (const std::string& name : names) EXPECT_EQ("answer to " + name, Answers.Find(name));
}

TEST_F(AnswerStoreTest, PrintersWithSpecialNamesAreKeptApart) {
  const std::u16string names[] = {u"\\\\server\\p", u"p", u"server/p", u"\u041F\u0447", u""};
  for (const std::u16string& name : names)
    AnswerStore(name.c_str()).Keep("Q", 1, std::to_string(name.size()));
  for (const std::u16string& name : names)
    EXPECT_EQ(std::to_string(name.size()), AnswerStore(name.c_str()).Find("Q"));
}

TEST_F(AnswerStoreTest, ForgottenAnswerIsGone) {
  Answers.Keep("Q", 1, "x");
  Answers.Forget("Q");
  Answers.Forget("never there");
  EXPECT_EQ("", Answers.Find("Q"));
}

TEST_F(AnswerStoreTest, JobIsKnownByNameAndNumber) {
  Answers.KeepJob("Send Printer Query", 7, true);
  EXPECT_TRUE(Answers.IsAnswered("Send Printer Query", 7));
  EXPECT_TRUE(Answers.IsAnswered("Send Printer Query", 0));
  EXPECT_FALSE(Answers.IsAnswered("Send Printer Query", 8));
  EXPECT_FALSE(Answers.IsAnswered("Another", 7));
}

TEST_F(AnswerStoreTest, UnansweredJobIsNoOlderOne) {
  Answers.KeepJob("J", 7, true);
  Answers.KeepJob("J", 8, false);
  EXPECT_FALSE(Answers.IsAnswered("J", 8));
  EXPECT_FALSE(Answers.IsAnswered("J", 0));
}

TEST_F(AnswerStoreTest, JobsOfLongAgoLeaveNothing) {
  for (int job = 1; job <= 201; ++job) {
    const std::string name = "Job " + std::to_string(job);
    Answers.Keep(name, job, "x");
    Answers.KeepJob(name.c_str(), job, true);
  }
  EXPECT_EQ("x", Answers.Find("Job 201"));
  EXPECT_EQ("x", Answers.Find("Job 102"));
  EXPECT_TRUE(Answers.IsAnswered("Job 102", 102));
  EXPECT_EQ("", Answers.Find("Job 101"));
  EXPECT_FALSE(Answers.IsAnswered("Job 101", 101));
  EXPECT_EQ("", Answers.Find("Job 1"));
}

TEST_F(AnswerStoreTest, JobsBehindTheLargestNumberOutliveThoseBefore) {
  for (int job = 1000; job < 1200; ++job) Answers.Keep(std::to_string(job), job, "old");
  Answers.Keep("New", 1, "new");
  Answers.KeepJob("New", 1, true);
  EXPECT_EQ("new", Answers.Find("New"));
  EXPECT_EQ("", Answers.Find("1199"));
}

TEST_F(AnswerStoreTest, AnswerOfALaterJobOutlivesAnEarlierJobsEnd) {
  for (int job = 1; job <= 201; ++job) Answers.Keep(std::to_string(job), job, "x");
  Answers.Keep("Later", 202, "new");
  Answers.KeepJob("Earlier", 201, true);
  EXPECT_EQ("new", Answers.Find("Later"));
  EXPECT_EQ("", Answers.Find("101"));
}

TEST_F(AnswerStoreTest, AnswersUpToTheLargestNumberAreKept) {
  for (int job = 0x7FFFFFFF - 200; job < 0x7FFFFFFF; ++job)
    Answers.Keep(std::to_string(job), job, "x");
  Answers.Keep("Last", 0x7FFFFFFF, "new");
  Answers.KeepJob("Last", 0x7FFFFFFF, true);
  EXPECT_EQ("new", Answers.Find("Last"));
  EXPECT_EQ("x", Answers.Find(std::to_string(0x7FFFFFFF - 99)));
  EXPECT_EQ("", Answers.Find(std::to_string(0x7FFFFFFF - 100)));
}

TEST_F(AnswerStoreTest, DamagedRecordIsNoAnswer) {
  ORegistry store;
  store.WriteBinary("1:SOFTWARE/Vantrel/Network Monitor/Answers/Printer/Q", "abc", 3);
  EXPECT_EQ("", Answers.Find("Q"));
}

TEST_F(AnswerStoreTest, NumbersBeginAgainBehindTheLargest) {
  ORegistry store;
  store.WriteDword("1:SOFTWARE/Vantrel/Network Monitor/Last Job", 0x7FFFFFFE);
  EXPECT_EQ(0x7FFFFFFF, Answers.NextJob());
  EXPECT_EQ(1, Answers.NextJob());
}

}  // namespace
}  // namespace ostvt::test
