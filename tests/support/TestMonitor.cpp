#include "tests/support/TestMonitor.h"

#include <stdlib.h>

#include "companions/netmon/Environment.h"
#include "platform/Module.h"

#ifdef _WIN32
#include "platform/windows/Win32.h"
#endif

namespace ostvt::test {
namespace {

constexpr char kLogName[] = "monitor.log";

void SetVariable(const char* name, const std::string& value) {
#ifdef _WIN32
  SetEnvironmentVariableA(name, value.empty() ? nullptr : value.c_str());
#else
  if (value.empty()) {
    unsetenv(name);
  } else {
    setenv(name, value.c_str(), 1);
  }
#endif
}

std::string Narrow(const std::u16string& path) { return std::filesystem::path(path).string(); }

// The build's own directory: the first one above the program that holds the monitor's builds.
std::filesystem::path Builds() {
  const std::filesystem::path builds = std::filesystem::path("companions") / "netmon";
  std::filesystem::path directory = std::filesystem::path(platform::ProcessPath()).parent_path();
  while (directory.has_relative_path() && !std::filesystem::exists(directory / builds / "test")) {
    directory = directory.parent_path();
  }
  return directory / builds;
}

}  // namespace

std::u16string MonitorDirectory(const std::string& build) { return (Builds() / build).u16string(); }

TestMonitor::Variable::Variable(const char* name, const std::string& value)
    : Name(name), Before(netmon::EnvironmentValue(name)) {
  Set(value);
}

TestMonitor::Variable::~Variable() { Set(Before); }

void TestMonitor::Variable::Set(const std::string& value) { SetVariable(Name.c_str(), value); }

TestMonitor::TestMonitor(const std::string& build)
    : Build(build),
      LogFile("VTNETMON_LOG", Files.Path(kLogName)),
      Fault("VTNETMON_FAULT", ""),
      Server("VTNETMON_SERVER", ""),
      ModuleDirectory("OSTVT_MODULE_DIR", Narrow(MonitorDirectory(build))) {}

TestMonitor::~TestMonitor() {
  std::error_code ignored;
  if (!Copy.empty()) std::filesystem::remove(Copy, ignored);
}

std::u16string TestMonitor::Path() const {
  return std::filesystem::path(MonitorDirectory(Build)).append("vtnetmon.d64").u16string();
}

void TestMonitor::StandBesideModule() {
#ifdef _WIN32
  Copy = platform::ModuleDirectory() + u"\\vtnetmon.d64";
  std::filesystem::copy_file(Path(), Copy, std::filesystem::copy_options::overwrite_existing);
#endif
}

void TestMonitor::Misbehave(const std::string& word) { Fault.Set(word); }

void TestMonitor::PlayServer(const std::string& name) { Server.Set(name); }

std::vector<std::string> TestMonitor::Log() const {
  std::vector<std::string> lines;
  const std::string text = Files.Get(kLogName);
  for (size_t at = 0; at < text.size();) {
    const size_t end = text.find('\n', at);
    lines.push_back(text.substr(at, end - at));
    if (end == std::string::npos) break;
    at = end + 1;
  }
  return lines;
}

int TestMonitor::Count(const std::string& text) const {
  int count = 0;
  for (const std::string& line : Log()) count += line.find(text) != std::string::npos;
  return count;
}

}  // namespace ostvt::test
