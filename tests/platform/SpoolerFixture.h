// The spooler with one driver of its own: on Linux in a store of its own, on Windows in the
// prefix's.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/KeyStore.h"
#include "platform/Spooler.h"
#include "tests/support/TempDirectory.h"

namespace ostvt::test {

class SpoolerFixture : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The printer is deleted after the test.
  bool Add(const std::u16string& name, const std::u16string& port);
  std::u16string DriverName() const { return u"Ostrel Spooler Test"; }
  std::u16string EnvironmentName() const;
  // Where the spooler says that a file of the driver lies.
  std::u16string InstalledPath(const std::u16string& file) const;
  // A value that SetPrinterData wrote, as the key store holds it.
  std::vector<uint8_t> PrinterData(const std::u16string& printer, const std::u16string& name);

 private:
  TempDirectory Files;
  std::vector<std::u16string> Added;
};

}  // namespace ostvt::test
