// The port monitor's file and its exports, by name and exact signature.
//
// The file is never linked to: it is loaded for a call and freed behind it, so that its absence is
// an ordinary condition. The convention is that of C on a 64-bit system; no result may be a C++
// bool. One thread.
#pragma once

#include <cstdint>

namespace ostvt {

inline constexpr char16_t kMonitorFileName[] = u"vtnetmon.d64";

inline constexpr char kSendXpmlRequest[] = "SendXPMLRequest";
inline constexpr char kHttpResponseSize[] = "HTTPResponse_Size";
inline constexpr char kHttpResponseData[] = "HTTPResponse_Data";
inline constexpr char kHttpResponseFree[] = "HTTPResponse_Free";
inline constexpr char kHostNameToIp[] = "HostNameToIP";
inline constexpr char kQuery[] = "Query";
inline constexpr char kStatusMonitor[] = "StatusMonitor";

extern "C" {
// Non-zero on success. The request ends with NUL. `response`, where it isn't null, gets a handle
// that HTTPResponse_Free takes back, or stays null when there is no answer.
using SendXpmlRequestFunction = int32_t(const char16_t* printerName, const char* request,
                                        void** response);
// The bytes of the answer.
using HttpResponseSizeFunction = int32_t(void* response);
// Copies exactly as many bytes as HTTPResponse_Size said.
using HttpResponseDataFunction = void(void* response, void* buffer);
using HttpResponseFreeFunction = void(void* response);
// Non-zero on success; `address` gets the four bytes as they are written, most significant first.
using HostNameToIpFunction = int32_t(const char* hostName, uint8_t* address);
// 1 on success: the answers to the job's queries are there. The command is
// `open "PRINTER" -jn "JOB"`, and on the spooler path ` -ji ID` behind it.
using QueryFunction = int32_t(void* window, const char16_t* command);
// As rundll32 calls it, with `open "PRINTER"` or `close "PRINTER"`.
using StatusMonitorFunction = void(void* window, void* instance, const char* command, int32_t show);
}

// How the file is reached. Tests put their own in its place (MonitorLink::Loader).
class MonitorLoader {
 public:
  virtual ~MonitorLoader() = default;
  // Null when there is no such file. Each one that isn't null is given to Close.
  virtual void* Open();
  virtual void* Find(void* file, const char* name);
  virtual void Close(void* file);
};

// The loaded file, for the life of this object.
class MonitorFile {
 public:
  // `loader` is borrowed; null: the file beside the module.
  explicit MonitorFile(MonitorLoader* loader);
  ~MonitorFile();
  MonitorFile(const MonitorFile&) = delete;
  MonitorFile& operator=(const MonitorFile&) = delete;

  // Null when the file or the export is missing; not to be called behind this object's end.
  template <typename F>
  F* Find(const char* name) {
    return File ? reinterpret_cast<F*>(Loader->Find(File, name)) : nullptr;
  }

 private:
  MonitorLoader ByPath;
  MonitorLoader* Loader;
  void* File;
};

}  // namespace ostvt
