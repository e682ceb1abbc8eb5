// A key store for one test: on Linux files of its own in a temporary directory; on Windows the keys
// "SOFTWARE\Vantrel\Drivers\Tests-Store" of the user and of the machine, removed at both ends.
#pragma once

#include <cstdlib>
#include <string>

#include "tests/support/TempDirectory.h"

#ifdef _WIN32
#include "platform/windows/Win32.h"
#endif

namespace ostvt::test {

class TestStore {
 public:
#ifdef _WIN32
  TestStore() {
    // Other test programs of the prefix remove keys that ours lie below.
    Mutex = CreateMutexW(nullptr, FALSE, L"ostvt test spooler");
    WaitForSingleObject(Mutex, 300 * 1000);
    Remove();
  }
  ~TestStore() {
    Remove();
    ReleaseMutex(Mutex);
    CloseHandle(Mutex);
  }
#else
  TestStore() {
    const char* before = getenv("OSTVT_STORE_DIR");
    HadBefore = before != nullptr;
    if (before) Before = before;
    setenv("OSTVT_STORE_DIR", Directory.Path().c_str(), 1);
  }
  ~TestStore() {
    if (HadBefore) {
      setenv("OSTVT_STORE_DIR", Before.c_str(), 1);
    } else {
      unsetenv("OSTVT_STORE_DIR");
    }
  }
  const TempDirectory& Files() const { return Directory; }
#endif
  TestStore(const TestStore&) = delete;
  TestStore& operator=(const TestStore&) = delete;

 private:
#ifdef _WIN32
  static void Remove() {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"SOFTWARE\\Vantrel\\Drivers\\Tests-Store");
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vantrel\\Drivers\\Tests-Store");
  }
  HANDLE Mutex;
#else
  TempDirectory Directory;
  bool HadBefore;
  std::string Before;
#endif
};

}  // namespace ostvt::test
