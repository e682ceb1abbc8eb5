#include "tests/support/LittlePrinter.h"

#include <stdio.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

#include "companions/netmon/SocketSystem.h"

#ifndef _WIN32
#include <netinet/in.h>
#endif

namespace ostvt::test {
namespace {

using netmon::SocketHandle;

constexpr int kPollTime = 10;  // milliseconds
constexpr std::chrono::seconds kWaitTime(10);
constexpr char kEscape = 27;

std::map<std::string, std::string> FactoryVariables() {
  return {{"appl.date", "07/14/26"},
          {"appl.name", "OSTREL D4"},
          {"appl.version", "1234"},
          {"card.mac_addr", "00:07:4D:1A:2B:3C"},
          {"comm.baud", "19200"},
          {"comm.parity", "N"},
          {"comm.stop_bits", "1"},
          {"device.friendly_name", "PACKING3"},
          {"ip.addr", "192.0.2.17"},
          {"ip.dhcp.enable", "on"},
          {"ip.ftp.enable", "off"},
          {"ip.gateway", "192.0.2.1"},
          {"ip.http.enable", "on"},
          {"ip.lpd.enable", "off"},
          {"ip.netmask", "255.255.255.0"},
          {"ip.port", "9100"},
          {"ip.remote", "0.0.0.0"},
          {"ip.tcp.enable", "on"},
          {"ip.telnet.enable", "off"},
          {"ip.udp.enable", "off"},
          {"memory.flash_free", "3145728 Bytes"},
          {"memory.flash_size", "4194304 Bytes"},
          {"memory.ram_free", "6291456 Bytes"},
          {"memory.ram_size", "8388608 Bytes"},
          {"power.dtr_power_off", "on"},
          {"power.inactivity_timeout", "120 seconds"},
          {"power.low_battery_shutdown", "6.6 (v)"},
          {"power.low_battery_timeout", "60 seconds"},
          {"power.low_battery_warning", "6.9 (v)"},
          {"power.percent_full", "87"},
          {"power.status", "good"},
          {"power.voltage", "7.4 (v)"}};
}

constexpr char kFiles[] =
    "Directory of E:\r\n"
    "FONT16  .CPF    14320\r\n"
    "LOGO    .PCX     2210\r\n";
constexpr char kChecksum[] = "A1B2";
constexpr char kVersion[] = "1234 7.30";

std::vector<std::string> QuotedParts(const std::string& line) {
  std::vector<std::string> parts;
  for (size_t begin = line.find('"'); begin != std::string::npos;) {
    const size_t end = line.find('"', begin + 1);
    if (end == std::string::npos) break;
    parts.push_back(line.substr(begin + 1, end - begin - 1));
    begin = line.find('"', end + 1);
  }
  return parts;
}

bool Begins(const std::string& text, const char* head) { return text.rfind(head, 0) == 0; }

}  // namespace

class LittlePrinter::Machine {
 public:
  Machine() {
    Listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(Listener, generic, size) != 0 || listen(Listener, 8) != 0 ||
        getsockname(Listener, generic, &size) != 0 || !netmon::MakeNonBlocking(Listener)) {
      fprintf(stderr, "LittlePrinter: no port to listen at\n");
    }
    PortNumber = ntohs(address.sin_port);
    Runner = std::thread([this] { Run(); });
  }
  ~Machine() {
    Ended = true;
    Runner.join();
    CloseListener();
  }
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  void StopListening() {
    Closing = true;
    std::unique_lock<std::mutex> lock(Access);
    Changed.wait_for(lock, kWaitTime, [this] { return Listener == netmon::kNoSocket; });
  }
  template <typename Condition>
  bool Wait(Condition condition) {
    std::unique_lock<std::mutex> lock(Access);
    return Changed.wait_for(lock, kWaitTime, condition);
  }

  uint16_t PortNumber = 0;
  std::mutex Access;  // of all that follows, up to the switches
  std::vector<std::string> Jobs;
  size_t EndedJobs = 0;
  std::vector<std::string> Actions;
  std::map<std::string, std::string> Variables = FactoryVariables();
  char Status[2] = {0, 0};
  std::string Tail;

  std::atomic<bool> Mute = false;
  std::atomic<int> AnswerDelay = 0;
  std::atomic<int> BytePause = 0;
  std::atomic<bool> Stalled = false;
  std::atomic<size_t> HangUpAfter = 0;

 private:
  enum class Place { kOutside, kUtilities, kLabel };

  void CloseListener() {
    const std::lock_guard<std::mutex> lock(Access);
    if (Listener != netmon::kNoSocket) netmon::CloseSocket(Listener);
    Listener = netmon::kNoSocket;
    Changed.notify_all();
  }

  void Run() {
    while (!Ended) {
      if (Closing && Listener != netmon::kNoSocket) CloseListener();
      if (Listener == netmon::kNoSocket) {
        std::this_thread::sleep_for(std::chrono::milliseconds(kPollTime));
      } else if (netmon::WaitForSocket(Listener, netmon::SocketEvent::kReadable, kPollTime)) {
        const SocketHandle client = accept(Listener, nullptr, nullptr);
        if (client == netmon::kNoSocket) continue;
        netmon::MakeNonBlocking(client);
        Serve(client);
      }
    }
  }

  void Serve(SocketHandle client) {
    {
      const std::lock_guard<std::mutex> lock(Access);
      Jobs.emplace_back();
    }
    Pending.clear();
    At = Place::kOutside;
    Client = client;
    bool cutOff = false;
    while (!Ended && !cutOff) {
      if (Stalled || !netmon::WaitForSocket(client, netmon::SocketEvent::kReadable, kPollTime)) {
        if (Stalled) std::this_thread::sleep_for(std::chrono::milliseconds(kPollTime));
        continue;
      }
      char bytes[4096];
      const auto got = recv(client, bytes, sizeof bytes, 0);
      if (got < 0 && netmon::WouldWait()) continue;
      if (got <= 0) break;
      cutOff = !Take(std::string(bytes, static_cast<size_t>(got)));
    }
    if (cutOff) {
      const linger cut = {1, 0};
      setsockopt(client, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&cut), sizeof cut);
    }
    netmon::CloseSocket(client);
    const std::lock_guard<std::mutex> lock(Access);
    ++EndedJobs;
    Changed.notify_all();
  }

  bool Take(const std::string& bytes) {
    {
      const std::lock_guard<std::mutex> lock(Access);
      Jobs.back() += bytes;
      Changed.notify_all();
      if (HangUpAfter != 0 && Jobs.back().size() >= HangUpAfter) return false;
    }
    Pending += bytes;
    while (TakeCommand()) {
    }
    return true;
  }

  // One command or line from the head of what has come; false when it isn't whole yet.
  bool TakeCommand() {
    if (Pending.empty()) return false;
    if (At != Place::kLabel && Pending[0] == kEscape) {
      if (Pending.size() < 2) return false;
      const char code = Pending[1];
      Pending.erase(0, 2);
      if (code == 'h') Answer("status", StatusByte(0));
      if (code == 'i') Answer("status", StatusByte(1));
      if (code == 'v') Answer("version", kVersion);
      return true;
    }
    const size_t end = Pending.find('\n');
    if (end == std::string::npos) return false;
    std::string line = Pending.substr(0, end);
    Pending.erase(0, end + 1);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    TakeLine(line);
    return true;
  }

  std::string StatusByte(int index) {
    const std::lock_guard<std::mutex> lock(Access);
    return std::string(1, Status[index]);
  }

  void TakeLine(const std::string& line) {
    if (At != Place::kLabel && Begins(line, "! U1 ")) {
      TakeVariableCommand(line);
    } else if (At == Place::kOutside && Begins(line, "! UTILITIES")) {
      At = Place::kUtilities;
    } else if (At == Place::kOutside && Begins(line, "! 0 ")) {
      At = Place::kLabel;
      IsCut = false;
    } else if (line == "PRINT" && At != Place::kOutside) {
      if (At == Place::kLabel) Act(IsCut ? "cut" : "label");
      At = Place::kOutside;
    } else if (At == Place::kLabel) {
      IsCut = IsCut || line == "CUT";
    } else if (At == Place::kUtilities) {
      const char* answer = line == "DIR" ? kFiles : line == "CHECKSUM" ? kChecksum : "";
      Answer("utilities " + line, answer);
    }
  }

  void TakeVariableCommand(const std::string& line) {
    const std::vector<std::string> parts = QuotedParts(line);
    if (Begins(line, "! U1 getvar ") && parts.size() == 1) {
      std::string value;
      {
        const std::lock_guard<std::mutex> lock(Access);
        const auto found = Variables.find(parts[0]);
        value = found == Variables.end() ? "?" : found->second;
      }
      Answer("getvar " + parts[0], "\"" + value + "\"");
    } else if (Begins(line, "! U1 setvar ") && parts.size() == 2) {
      const std::lock_guard<std::mutex> lock(Access);
      Variables[parts[0]] = parts[1];
      Actions.push_back("setvar " + parts[0] + "=" + parts[1]);
    } else if (Begins(line, "! U1 do ") && parts.size() == 1) {
      const std::lock_guard<std::mutex> lock(Access);
      if (parts[0] == "device.reset") Variables = FactoryVariables();
      Actions.push_back("do " + parts[0]);
    }
  }

  void Act(const std::string& action) {
    const std::lock_guard<std::mutex> lock(Access);
    Actions.push_back(action);
  }

  void Answer(const std::string& action, std::string bytes) {
    Act(action);
    if (bytes.empty() || Mute) return;
    {
      const std::lock_guard<std::mutex> lock(Access);
      bytes += Tail;
    }
    Sleep(AnswerDelay);
    const int pause = BytePause;
    const size_t piece = pause > 0 ? 1 : bytes.size();
    for (size_t at = 0; at < bytes.size() && !Ended; at += piece) {
      if (at > 0) Sleep(pause);
      Send(bytes.substr(at, piece));
    }
  }

  void Send(const std::string& bytes) {
    for (size_t at = 0; at < bytes.size() && !Ended;) {
      const auto sent =
          send(Client, bytes.data() + at, static_cast<netmon::SocketBytes>(bytes.size() - at),
               netmon::kSendFlags);
      if (sent > 0) at += static_cast<size_t>(sent);
      if (sent > 0) continue;
      if (!netmon::WouldWait()) return;
      netmon::WaitForSocket(Client, netmon::SocketEvent::kWritable, kPollTime);
    }
  }

  // In steps, so that the end doesn't wait.
  void Sleep(int milliseconds) {
    for (; milliseconds > 0 && !Ended; milliseconds -= kPollTime) {
      std::this_thread::sleep_for(std::chrono::milliseconds(std::min(milliseconds, kPollTime)));
    }
  }

  netmon::SocketLibrary Library;
  SocketHandle Listener = netmon::kNoSocket;
  std::condition_variable Changed;
  std::atomic<bool> Ended = false;
  std::atomic<bool> Closing = false;

  // The connection at hand; the thread's alone.
  SocketHandle Client = netmon::kNoSocket;
  std::string Pending;
  Place At = Place::kOutside;
  bool IsCut = false;

  std::thread Runner;
};

LittlePrinter::LittlePrinter() : Self(std::make_unique<Machine>()) {}
LittlePrinter::~LittlePrinter() = default;

uint16_t LittlePrinter::Port() const { return Self->PortNumber; }

std::u16string LittlePrinter::PortName() const {
  std::u16string name = u"socket://127.0.0.1:";
  for (const char digit : std::to_string(Port())) name += static_cast<char16_t>(digit);
  return name;
}

std::string LittlePrinter::Received() const {
  std::string all;
  for (const std::string& job : Jobs()) all += job;
  return all;
}

std::vector<std::string> LittlePrinter::Jobs() const {
  const std::lock_guard<std::mutex> lock(Self->Access);
  return Self->Jobs;
}

std::vector<std::string> LittlePrinter::Actions() const {
  const std::lock_guard<std::mutex> lock(Self->Access);
  return Self->Actions;
}

bool LittlePrinter::WaitForJobs(size_t count) const {
  return Self->Wait([this, count] { return Self->EndedJobs >= count; });
}

bool LittlePrinter::WaitForText(const std::string& text) const {
  return Self->Wait([this, &text] {
    std::string all;
    for (const std::string& job : Self->Jobs) all += job;
    return all.find(text) != std::string::npos;
  });
}

std::string LittlePrinter::Variable(const std::string& name) const {
  const std::lock_guard<std::mutex> lock(Self->Access);
  const auto found = Self->Variables.find(name);
  return found == Self->Variables.end() ? "" : found->second;
}

void LittlePrinter::SetVariable(const std::string& name, const std::string& value) {
  const std::lock_guard<std::mutex> lock(Self->Access);
  Self->Variables[name] = value;
}

void LittlePrinter::SetStatus(uint8_t first, uint8_t second) {
  const std::lock_guard<std::mutex> lock(Self->Access);
  Self->Status[0] = static_cast<char>(first);
  Self->Status[1] = static_cast<char>(second);
}

void LittlePrinter::SetMute(bool isMute) { Self->Mute = isMute; }
void LittlePrinter::SetAnswerDelay(int milliseconds) { Self->AnswerDelay = milliseconds; }
void LittlePrinter::SetBytePause(int milliseconds) { Self->BytePause = milliseconds; }

void LittlePrinter::SetAnswerTail(const std::string& tail) {
  const std::lock_guard<std::mutex> lock(Self->Access);
  Self->Tail = tail;
}

void LittlePrinter::SetStalled(bool isStalled) { Self->Stalled = isStalled; }
void LittlePrinter::SetHangUpAfter(size_t bytes) { Self->HangUpAfter = bytes; }
void LittlePrinter::StopListening() { Self->StopListening(); }

}  // namespace ostvt::test
