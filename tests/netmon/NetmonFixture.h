// A printer of the spooler whose port leads to the little printer, and jobs to it by hand.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "companions/netmon/AnswerStore.h"
#include "companions/netmon/PrintedJob.h"
#include "store/PrinterRegistry.h"
#include "tests/support/LittlePrinter.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {

inline TestPrinterOptions AtPort(const std::u16string& port) {
  TestPrinterOptions options;
  options.Port = port;
  return options;
}

class NetmonJob : public testing::Test {
 protected:
  NetmonJob() : Spooled(AtPort(Printer.PortName())) {}

  void SetUp() override { ASSERT_TRUE(Spooled.IsReady()); }

  void SetNumber(const char* path, int32_t value) {
    PrinterRegistry store(Spooled.Name());
    store.SetShadowed(false);
    ASSERT_TRUE(store.WriteInt(path, value));
  }

  // A whole job, `packet` bytes at a time; its number, or 0 when it failed somewhere.
  int32_t Print(const std::string& bytes, size_t packet = 32000) {
    netmon::PrintedJob job(Spooled.Name(), "Job");
    const int32_t number = job.Start();
    bool done = number != 0;
    for (size_t at = 0; done && at < bytes.size(); at += packet) {
      const std::string piece = bytes.substr(at, packet);
      done = job.Write(reinterpret_cast<const uint8_t*>(piece.data()), piece.size());
    }
    return job.End() && done ? number : 0;
  }

  std::string AnswerTo(const std::string& query) const {
    return netmon::AnswerStore(Spooled.Name()).Find(query);
  }
  bool IsAnswered(int32_t job) const {
    return netmon::AnswerStore(Spooled.Name()).IsAnswered("Job", job);
  }
  std::string Received(size_t jobs = 1) const {
    EXPECT_TRUE(Printer.WaitForJobs(jobs));
    return Printer.Received();
  }

  LittlePrinter Printer;
  TestPrinter Spooled;
};

}  // namespace ostvt::test
