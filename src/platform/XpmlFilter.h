// Takes the XPML brackets out of a job's bytes, however they are cut into packets.
//
// Outside "<xpml>" ... "</xpml>" every byte is the printer's. Inside, the elements "<query ...>",
// "</query>" and "<end/>" are the monitor's; all else is the printer's there too, and within a
// query only "</query>" counts, since commands may hold any bytes. What only begins like an element
// is the printer's. One thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace ostvt::platform {

// Gets what a filter finds, in order.
class XpmlSink {
 public:
  virtual ~XpmlSink() = default;
  // Bytes for the printer; in a query if BeginQuery came and EndQuery didn't.
  virtual void OnBytes(const uint8_t* bytes, size_t count) = 0;
  // `name` is cut at 255 bytes; `size` is the exact number of bytes of the answer, or an estimate.
  virtual void OnBeginQuery(const std::string& name, uint32_t size, bool isEstimate) {
    (void)name, (void)size, (void)isEstimate;
  }
  virtual void OnEndQuery() {}
  virtual void OnEndQueries() {}
};

class XpmlFilter {
 public:
  explicit XpmlFilter(XpmlSink* sink) : Sink(sink) {}  // borrowed
  void Write(const uint8_t* bytes, size_t count);
  // The end of the job: what might still have become an element is the printer's. What is written
  // then is another job's.
  void Finish();

 private:
  enum class Place { kOutside, kDocument, kQuery };

  void TakeElements(bool isWhole);
  size_t TakeElement(bool isWhole);  // `isWhole`: nothing more comes
  void OpenQuery(const std::string& element);

  XpmlSink* Sink;
  Place At = Place::kOutside;
  std::string Held;  // from a "<" on, while it may be an element
};

}  // namespace ostvt::platform
