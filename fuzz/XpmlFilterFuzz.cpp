// A job's bytes: what a filter finds doesn't depend on how they are cut into packets, a job without
// a bracket passes as it is, and nothing is invented. The first byte is the size of the packets.
#include <cstdlib>
#include <string>

#include "platform/XpmlFilter.h"

namespace {

class Sink : public ostvt::platform::XpmlSink {
 public:
  void OnBytes(const uint8_t* bytes, size_t count) override {
    Found.append(reinterpret_cast<const char*>(bytes), count);
    Passed += count;
  }
  void OnBeginQuery(const std::string& name, uint32_t size, bool isEstimate) override {
    if (name.size() > 255 || ++Open != 1) abort();
    Found += "\1" + name + (isEstimate ? '~' : '=') + std::to_string(size) + "\2";
  }
  void OnEndQuery() override {
    if (--Open != 0) abort();
    Found += "\3";
  }
  void OnEndQueries() override { Found += "\4"; }

  std::string Found;
  size_t Passed = 0;
  int Open = 0;
};

Sink Filter(const std::string& bytes, size_t part) {
  Sink sink;
  ostvt::platform::XpmlFilter filter(&sink);
  for (size_t at = 0; at < bytes.size(); at += part) {
    const std::string packet = bytes.substr(at, part);
    filter.Write(reinterpret_cast<const uint8_t*>(packet.data()), packet.size());
  }
  filter.Finish();
  return sink;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  const Sink whole = Filter(bytes, bytes.size() + 1);
  const Sink parts = Filter(bytes, size_t{data[0]} + 1);
  if (whole.Found != parts.Found || whole.Passed > bytes.size()) abort();
  if (bytes.find("<xpml>") == std::string::npos && whole.Found != bytes) abort();
  return 0;
}
