#include "companions/netmon/CallLog.h"

#include "companions/netmon/Environment.h"
#include "companions/netmon/Text.h"
#include "platform/Files.h"

namespace ostvt::netmon {
namespace {

constexpr size_t kLongestArgument = 4096;

void AppendQuoted(const std::string& argument, std::string* line) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  *line += " \"";
  for (const char character : argument.substr(0, kLongestArgument)) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= ' ') {
      *line += character;
    } else {
      *line += "\\x";
      *line += kDigits[byte >> 4];
      *line += kDigits[byte & 15];
    }
  }
  *line += '"';
}

}  // namespace

void LogCall(const char* name, const std::string& first, const std::string& second) {
  const std::string path = EnvironmentValue("VTNETMON_LOG");
  if (path.empty()) return;
  std::string line = name;
  if (!first.empty() || !second.empty()) AppendQuoted(first, &line);
  if (!second.empty()) AppendQuoted(second, &line);
  line += '\n';
  platform::FileHandle file = platform::OpenFile(
      FromUtf8(path).c_str(), true, platform::kShareRead | platform::kShareWrite, true);
  platform::SeekFile(file, 0, platform::FileOrigin::kEnd);
  platform::WriteFile(file, line.data(), static_cast<uint32_t>(line.size()));
  platform::CloseFile(file);
}

}  // namespace ostvt::netmon
