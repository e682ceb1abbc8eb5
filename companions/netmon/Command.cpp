#include "companions/netmon/Command.h"

#include "core/OString.h"

namespace ostvt::netmon {
namespace {

constexpr char16_t kDocument[] = u" -jn \"";
constexpr char16_t kJob[] = u" -ji ";

// What stands in the text's outer quotes.
std::u16string Unquoted(const std::u16string& text) {
  const size_t begin = text.find(u'"');
  const size_t end = text.rfind(u'"');
  if (begin == std::u16string::npos || end == begin) return {};
  return text.substr(begin + 1, end - begin - 1);
}

}  // namespace

bool ParseCommand(const std::u16string& text, Command* command) {
  std::u16string rest = text;
  if (const size_t job = rest.rfind(kJob);
      job != std::u16string::npos && rest.find(u'"', job) == std::u16string::npos) {
    command->Job = OString(rest.c_str() + job + std::char_traits<char16_t>::length(kJob)).ToInt();
    rest.resize(job);
  }
  if (const size_t document = rest.rfind(kDocument); document != std::u16string::npos) {
    command->Document = Unquoted(rest.substr(document));
    rest.resize(document);
  }
  command->Verb = rest.substr(0, rest.find(u' '));
  command->Printer = Unquoted(rest);
  return !command->Verb.empty() && !command->Printer.empty();
}

}  // namespace ostvt::netmon
