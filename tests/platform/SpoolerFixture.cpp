#include "tests/platform/SpoolerFixture.h"

#include <cstring>

#ifdef _WIN32
#include "platform/windows/Winspool.h"
#else
#include <stdlib.h>
#endif

namespace ostvt::test {
namespace {

constexpr const char* kFiles[] = {"spooler-test.dll", "spooler-test.dat", "spooler-test.hlp",
                                  "spooler-one.dep", "spooler-two.dep"};

#ifdef _WIN32

std::u16string DriversDirectory() {
  char16_t path[MAX_PATH] = {};
  DWORD needed = 0;
  GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(path), sizeof path,
                             &needed);
  return std::u16string(path) + u"\\3\\";
}

#endif

}  // namespace

void SpoolerFixture::SetUp() {
  for (const char* name : kFiles) Files.Put(name, "dummy");
#ifndef _WIN32
  setenv("OSTVT_STORE_DIR", Files.Path("store").c_str(), 1);
#endif
  platform::DriverRecord driver;
  driver.Name = DriverName();
  driver.DriverPath = Files.WidePath(u"spooler-test.dll");
  driver.ConfigFile = driver.DriverPath;
  driver.DataFile = Files.WidePath(u"spooler-test.dat");
  driver.HelpFile = Files.WidePath(u"spooler-test.hlp");
  driver.DependentFiles = {Files.WidePath(u"spooler-one.dep"), Files.WidePath(u"spooler-two.dep")};
  driver.MfgName = u"Vantrel";
  driver.HardwareId = u"OSTREL_TEST";
  driver.Provider = u"Vantrel Provider";
  ASSERT_TRUE(platform::AddDriver(driver));
}

void SpoolerFixture::TearDown() {
  for (const std::u16string& name : Added) platform::DeletePrinter(name.c_str());
#ifdef _WIN32
  std::u16string driver = DriverName();
  DeletePrinterDriverExW(nullptr, const_cast<wchar_t*>(L"Windows x64"),
                         platform::AsWide(driver.data()), 0, 0);
  for (const char* name : kFiles) {
    std::u16string path = InstalledPath(std::u16string(name, name + strlen(name)));
    DeleteFileW(platform::AsWide(path.c_str()));
  }
#else
  unsetenv("OSTVT_STORE_DIR");
#endif
}

bool SpoolerFixture::Add(const std::u16string& name, const std::u16string& port) {
  platform::DeletePrinter(name.c_str());  // of a test that was killed
  Added.push_back(name);
  return platform::AddPrinter({name, DriverName(), port, u""});
}

std::u16string SpoolerFixture::EnvironmentName() const {
#ifdef _WIN32
  return u"Windows x64";
#else
  return u"Linux x64";
#endif
}

std::u16string SpoolerFixture::InstalledPath(const std::u16string& file) const {
#ifdef _WIN32
  return DriversDirectory() + file;
#else
  return Files.WidePath(file);
#endif
}

std::vector<uint8_t> SpoolerFixture::PrinterData(const std::u16string& printer,
                                                 const std::u16string& name) {
  std::u16string path =
      u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" + printer + u"\\PrinterDriverData";
  platform::KeyHandle key = platform::OpenKey(platform::Hive::kLocalMachine, path.c_str(), false);
  std::vector<uint8_t> bytes(4096);
  int size = key ? platform::ReadValue(key, name.c_str(), bytes.data(), 4096, nullptr) : -1;
  platform::CloseKey(key);
  bytes.resize(size < 0 ? 0 : static_cast<size_t>(size));
  return bytes;
}

}  // namespace ostvt::test
