// A printer of the family on 127.0.0.1, at a free port, in a thread of its own: takes jobs, speaks
// the family's commands and writes down every byte. Serves one connection after the other.
//
// It understands, wherever they stand at the start of a line:
//   ! U1 getvar "NAME"           answers the value in double quotes; `"?"` for an unknown name
//   ! U1 setvar "NAME" "VALUE"
//   ! U1 do "NAME"               "device.reset" restores the variables
//   ! UTILITIES                  a block up to PRINT; CHECKSUM answers "A1B2", DIR a list of files
//   ! 0 ...                      a label, up to PRINT
// and, outside labels, ESC h and ESC i (a status byte each) and ESC v (the version). All else is
// only written down. Safe to be asked from any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ostvt::test {

class LittlePrinter {
 public:
  LittlePrinter();   // listens when this returns; the test fails with a line on stderr if it can't
  ~LittlePrinter();  // cuts off whoever is connected
  LittlePrinter(const LittlePrinter&) = delete;
  LittlePrinter& operator=(const LittlePrinter&) = delete;

  uint16_t Port() const;
  std::u16string PortName() const;  // "socket://127.0.0.1:PORT"

  // All bytes so far, of all connections.
  std::string Received() const;
  // The bytes of each connection, in order.
  std::vector<std::string> Jobs() const;
  // What it was told to do, in order: "do NAME", "setvar NAME=VALUE", "getvar NAME",
  // "utilities LINE", "cut", "label", "status", "version".
  std::vector<std::string> Actions() const;
  // True when so many connections have ended, within some seconds.
  bool WaitForJobs(size_t count) const;
  // True when `text` has come, within some seconds.
  bool WaitForText(const std::string& text) const;

  std::string Variable(const std::string& name) const;
  void SetVariable(const std::string& name, const std::string& value);
  void SetStatus(uint8_t first, uint8_t second);

  // How it misbehaves, from the next command on.
  void SetMute(bool isMute);                    // answers nothing
  void SetAnswerDelay(int milliseconds);        // before each answer
  void SetBytePause(int milliseconds);          // between the bytes of an answer
  void SetAnswerTail(const std::string& tail);  // behind each answer
  void SetStalled(bool isStalled);              // reads no more; the system still takes some MB
  void SetHangUpAfter(size_t bytes);            // cuts each connection off there; 0: never
  // Nobody listens any more: connections are refused.
  void StopListening();

 private:
  class Machine;
  std::unique_ptr<Machine> Self;
};

}  // namespace ostvt::test
