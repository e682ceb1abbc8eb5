// Bytes on their way to a printer's port. Waits for a port that takes nothing for some seconds,
// then fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace ostvt::platform {

// An open port; one that goes without Finish gives the job up.
class PortWriter {
 public:
  virtual ~PortWriter() = default;
  // False once the port has failed.
  virtual bool Write(const uint8_t* bytes, size_t count) = 0;
  // The job's end. True when the port has taken everything.
  virtual bool Finish() = 0;
  // True where the port itself takes XPML out.
  virtual bool KnowsXpml() const { return false; }

  int32_t JobId = 0;  // above 0
};

// Null when the port can't be opened, or is of no kind that is known.
std::unique_ptr<PortWriter> OpenPort(const std::u16string& port, const std::u16string& printer,
                                     const std::u16string& document);

// The kinds of ports, by what stands behind "file:", "socket://" and "cups:".
std::unique_ptr<PortWriter> OpenFilePort(const std::string& path);
std::unique_ptr<PortWriter> OpenSocketPort(const std::string& address);
std::unique_ptr<PortWriter> OpenCupsPort(const std::string& queue, const std::string& document);
// `isInstalled` tells a printer that can't be reached from a monitor that isn't there.
std::unique_ptr<PortWriter> OpenMonitorPort(const std::u16string& printer,
                                            const std::u16string& document, bool* isInstalled);

// All bytes to a descriptor in non-blocking mode; false when it takes none for the port's time.
// What a socket's peer says meanwhile is thrown away: one that can't get rid of it takes nothing
// more.
bool WriteAll(int descriptor, const uint8_t* bytes, size_t count, bool isSocket);
// A number for a job that no spooler numbers.
int32_t MakeJobId();

}  // namespace ostvt::platform
