// A request in XPML and its answer: each element gives way to what it asks for, and what stands
// between elements stays.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "companions/netmon/AnswerStore.h"
#include "companions/netmon/ServerRegistry.h"

namespace ostvt::netmon {

class Request {
 public:
  // `server`: see ServerRegistry.
  Request(const OString& printerName, const OString& server);

  // 0, or the system's number of what went wrong: no well-formed request, no such printer, a server
  // that can't be reached. An element that isn't known has an empty answer.
  uint32_t Run(std::string_view text, std::string* answer);

 private:
  bool Evaluate(std::string_view end, int depth, std::string* answer);
  bool EvaluateElement(int depth, std::string* answer);
  bool EvaluateEncoded(std::string_view filters, int depth, std::string* answer);
  bool EvaluateSettings(std::string_view action, std::string* answer);
  bool TakeBody(std::string_view end, std::string_view* body);
  std::string StateOf(std::string_view name);
  std::string PortValue(std::string_view name);
  bool NeedServer();
  bool Fail(uint32_t error);

  OString Printer;
  ServerRegistry Server;
  AnswerStore Answers;
  std::string_view Text;  // what is left of the request
  uint32_t Error = 0;
};

}  // namespace ostvt::netmon
