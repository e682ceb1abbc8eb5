// A queue of the system's own spooler, by the two requests of its protocol that a raw job needs.
// Its library is loaded with the first job, since most processes never print this way, and stays:
// it leaves work for the end of each thread that used it.
#include <sys/socket.h>

#include "platform/Libraries.h"
#include "platform/linux/PortWriter.h"

namespace ostvt::platform {
namespace {

constexpr char16_t kLibrary[] = u"libcups.so.2";
constexpr char kRawFormat[] = "application/vnd.cups-raw";
constexpr int kConnectTimeout = 5000;  // milliseconds
constexpr double kAnswerTimeout = 30;  // seconds

// Numbers of the protocol.
constexpr int kCreateJob = 5;
constexpr int kSendDocument = 6;
constexpr int kCancelJob = 8;
constexpr int kOperationGroup = 1;
constexpr int kTagInteger = 0x21;
constexpr int kTagName = 0x42;
constexpr int kTagUri = 0x45;
constexpr int kTagMimeType = 0x49;
constexpr int kLargestGoodStatus = 0xFF;
constexpr int kContinue = 100;  // the server takes more

struct Connection;
struct Message;
struct Attribute;

// Its functions, as their documentation states them.
struct CupsFunctions {
  explicit CupsFunctions(LibraryHandle library) {
    Find(library, "cupsServer", &Server);
    Find(library, "ippPort", &Port);
    Find(library, "cupsEncryption", &Encryption);
    Find(library, "cupsUser", &User);
    Find(library, "cupsSetPasswordCB2", &SetPasswordFunction);
    Find(library, "httpConnect2", &Connect);
    Find(library, "httpSetTimeout", &SetTimeout);
    Find(library, "httpClose", &Close);
    Find(library, "ippNewRequest", &NewRequest);
    Find(library, "ippDelete", &Delete);
    Find(library, "ippAddString", &AddString);
    Find(library, "ippAddInteger", &AddInteger);
    Find(library, "ippAddBoolean", &AddBoolean);
    Find(library, "ippGetStatusCode", &StatusOf);
    Find(library, "ippFindAttribute", &FindAttribute);
    Find(library, "ippGetInteger", &IntegerOf);
    Find(library, "cupsDoRequest", &DoRequest);
    Find(library, "cupsSendRequest", &SendRequest);
    Find(library, "cupsWriteRequestData", &WriteData);
    Find(library, "cupsGetResponse", &GetResponse);
  }
  template <typename F>
  void Find(LibraryHandle library, const char* name, F** function) {
    *function = FindFunction<F>(library, name);
    if (!*function) IsWhole = false;
  }

  bool IsWhole = true;
  const char* (*Server)();
  int (*Port)();
  int (*Encryption)();
  const char* (*User)();
  void (*SetPasswordFunction)(const char* (*ask)(const char* prompt, Connection* connection,
                                                 const char* method, const char* resource,
                                                 void* data),
                              void* data);
  Connection* (*Connect)(const char* host, int port, void* addresses, int family, int encryption,
                         int blocking, int timeout, int* cancel);
  void (*SetTimeout)(Connection* connection, double seconds, int (*goOn)(Connection*, void*),
                     void* data);
  void (*Close)(Connection* connection);
  Message* (*NewRequest)(int operation);
  void (*Delete)(Message* message);
  Attribute* (*AddString)(Message* message, int group, int tag, const char* name,
                          const char* language, const char* value);
  Attribute* (*AddInteger)(Message* message, int group, int tag, const char* name, int value);
  Attribute* (*AddBoolean)(Message* message, int group, const char* name, char value);
  int (*StatusOf)(Message* message);
  Attribute* (*FindAttribute)(Message* message, const char* name, int tag);
  int (*IntegerOf)(Attribute* attribute, int element);
  // Takes the message.
  Message* (*DoRequest)(Connection* connection, Message* message, const char* resource);
  int (*SendRequest)(Connection* connection, Message* message, const char* resource, size_t length);
  int (*WriteData)(Connection* connection, const char* bytes, size_t count);
  Message* (*GetResponse)(Connection* connection, const char* resource);
};

class CupsPort : public PortWriter {
 public:
  CupsPort(LibraryHandle library, const std::string& resource)
      : Cups(library), Resource(resource), QueueUri("ipp://localhost" + resource) {}
  ~CupsPort() override {
    if (Server) {
      // To ask for the answer would end the document, and what there is of it would be printed.
      Cups.Close(Server);
      if (JobId > 0 && !Finished) CancelJob();
    }
    if (Cups.IsWhole) Cups.SetPasswordFunction(nullptr, nullptr);
  }
  CupsPort(const CupsPort&) = delete;
  CupsPort& operator=(const CupsPort&) = delete;

  bool Start(const std::string& document) {
    if (!Cups.IsWhole) return false;
    Server = Connect();
    return Server && CreateJob(document) && SendHead(document);
  }
  bool Write(const uint8_t* bytes, size_t count) override {
    if (!Failed && count > 0) {
      Failed = Cups.WriteData(Server, reinterpret_cast<const char*>(bytes), count) != kContinue;
    }
    return !Failed;
  }
  bool Finish() override {
    Finished = !Failed && IsAccepted(Cups.GetResponse(Server, Resource.c_str()));
    return Finished;
  }

 private:
  // Null when the server can't be reached.
  Connection* Connect() {
    // The library's own function would ask on the terminal, again and again. It is the thread's, as
    // all that the library is told, and the thread may be another one each time.
    Cups.SetPasswordFunction([](const char*, Connection*, const char*, const char*,
                                void*) -> const char* { return nullptr; },
                             nullptr);
    Connection* server = Cups.Connect(Cups.Server(), Cups.Port(), nullptr, AF_UNSPEC,
                                      Cups.Encryption(), 1, kConnectTimeout, nullptr);
    if (server) {
      Cups.SetTimeout(
          server, kAnswerTimeout, [](Connection*, void*) { return 0; }, nullptr);
    }
    return server;
  }
  Message* MakeRequest(int operation) {
    Message* request = Cups.NewRequest(operation);
    Cups.AddString(request, kOperationGroup, kTagUri, "printer-uri", nullptr, QueueUri.c_str());
    return request;
  }
  void AddName(Message* request, const char* name, const char* value) {
    Cups.AddString(request, kOperationGroup, kTagName, name, nullptr, value);
  }
  bool CreateJob(const std::string& document) {
    Message* request = MakeRequest(kCreateJob);
    AddName(request, "requesting-user-name", Cups.User());
    AddName(request, "job-name", document.c_str());
    Message* answer = Cups.DoRequest(Server, request, Resource.c_str());
    if (!answer) return false;
    Attribute* id = Cups.FindAttribute(answer, "job-id", kTagInteger);
    if (id) JobId = Cups.IntegerOf(id, 0);
    return IsAccepted(answer) && JobId > 0;
  }
  // The document's request, up to its bytes.
  bool SendHead(const std::string& document) {
    Message* request = MakeRequest(kSendDocument);
    Cups.AddInteger(request, kOperationGroup, kTagInteger, "job-id", JobId);
    AddName(request, "requesting-user-name", Cups.User());
    AddName(request, "document-name", document.c_str());
    Cups.AddString(request, kOperationGroup, kTagMimeType, "document-format", nullptr, kRawFormat);
    Cups.AddBoolean(request, kOperationGroup, "last-document", 1);
    const size_t lengthUnknown = 0;
    const int state = Cups.SendRequest(Server, request, Resource.c_str(), lengthUnknown);
    Cups.Delete(request);
    return state == kContinue;
  }
  // On a connection of its own: the job's may still be in the middle of the document.
  void CancelJob() {
    Connection* server = Connect();
    if (!server) return;
    Message* request = MakeRequest(kCancelJob);
    Cups.AddInteger(request, kOperationGroup, kTagInteger, "job-id", JobId);
    AddName(request, "requesting-user-name", Cups.User());
    IsAccepted(Cups.DoRequest(server, request, Resource.c_str()));
    Cups.Close(server);
  }
  // Takes the answer; null is none.
  bool IsAccepted(Message* answer) {
    if (!answer) return false;
    const int status = Cups.StatusOf(answer);
    Cups.Delete(answer);
    return status >= 0 && status <= kLargestGoodStatus;
  }

  CupsFunctions Cups;
  std::string Resource;
  std::string QueueUri;
  Connection* Server = nullptr;
  bool Failed = false;
  bool Finished = false;
};

// The queue's place on the server.
std::string ResourceOf(const std::string& queue) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string resource = "/printers/";
  for (const char character : queue) {
    const bool isPlain = (character >= '0' && character <= '9') ||
                         (character >= 'A' && character <= 'Z') ||
                         (character >= 'a' && character <= 'z') || character == '-' ||
                         character == '_' || character == '.';
    if (isPlain) {
      resource += character;
    } else {
      resource += '%';
      resource += kDigits[static_cast<uint8_t>(character) >> 4];
      resource += kDigits[character & 15];
    }
  }
  return resource;
}

}  // namespace

std::unique_ptr<PortWriter> OpenCupsPort(const std::string& queue, const std::string& document) {
  LibraryHandle library = OpenLibrary(kLibrary);
  if (!library) return nullptr;
  auto port = std::make_unique<CupsPort>(library, ResourceOf(queue));
  if (!port->Start(document)) return nullptr;
  return port;
}

}  // namespace ostvt::platform
