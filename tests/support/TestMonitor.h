// The port monitor's test build, for one test: a monitor that answers rightly until it is told to
// misbehave, and that writes down what it was asked. While this object lives the module finds it
// beside itself on Linux (through OSTVT_MODULE_DIR); elsewhere tests load it by Path().
//
// One at a time; what it changes in the environment is put back at the end.
#pragma once

#include <string>
#include <vector>

#include "tests/support/TempDirectory.h"

namespace ostvt::test {

// The directory of one of the monitor's builds: "real", "test", or "without-EXPORT", a test build
// that lacks that one export, which may be any of them.
std::u16string MonitorDirectory(const std::string& build);

class TestMonitor {
 public:
  explicit TestMonitor(const std::string& build = "test");
  ~TestMonitor();
  TestMonitor(const TestMonitor&) = delete;
  TestMonitor& operator=(const TestMonitor&) = delete;

  std::u16string Path() const;  // of the file itself
  // Elsewhere than on Linux: a copy lies beside the module, which is this program, as long as this
  // object lives. For programs in a directory of their own.
  void StandBesideModule();

  // From here on, until another word or "":
  //   zero            result 0, no handle
  //   zero-with-handle  result 0 and a handle, which must be freed all the same
  //   null-handle     result 1, no handle
  //   empty           an answer of no bytes
  //   short           an answer of two bytes
  //   negative-size   a size of -1
  //   huge            an answer of 64 MiB
  //   garbage         4096 bytes of any value
  //   half-frame      the first half of a sound LZ77 frame
  //   lying-frame     an LZ77 frame that states 4 GiB
  //   slow            the right answer, 1500 ms later; "slow:NUMBER" so many milliseconds later
  //   say:TEXT        TEXT as the answer
  //   result:NUMBER   the right answer with that result
  //   query:NUMBER    what Query gives
  // "WORD@TEXT" (the last "@" counts) only for requests that hold TEXT.
  void Misbehave(const std::string& word);
  // Plays a server of that name, with a store of its own, for every printer.
  void PlayServer(const std::string& name);

  // A line for each call, in order: the export's name, then, in double quotes, what it was given.
  // SendXPMLRequest "PRINTER" "REQUEST"
  // And where it was slow: waited "MILLISECONDS"
  std::vector<std::string> Log() const;
  // How many lines of it hold `text`.
  int Count(const std::string& text) const;

 private:
  class Variable {
   public:
    Variable(const char* name, const std::string& value);
    ~Variable();
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    void Set(const std::string& value);

   private:
    std::string Name;
    std::string Before;
  };

  std::string Build;
  std::u16string Copy;  // beside the module; "" for none
  TempDirectory Files;
  Variable LogFile;
  Variable Fault;
  Variable Server;
  Variable ModuleDirectory;
};

}  // namespace ostvt::test
