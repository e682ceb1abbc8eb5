// A pseudo-font of an application: text in it is printed as a bar code or written to an RFID tag.
//
// Bodies are read and written through the records of DataFontRecord.h. One thread.
#pragma once

#include <cstdint>
#include <memory>

#include "core/Buffer.h"
#include "core/OString.h"
#include "fonts/DataFontRecord.h"

namespace ostvt {

class DataFont {
 public:
  virtual ~DataFont();
  DataFont(const DataFont&) = delete;
  DataFont& operator=(const DataFont&) = delete;
  virtual std::unique_ptr<DataFont> Clone() const = 0;

  bool IsRfid() const { return Header.Kind == kDataFontRfid; }
  // Of any length; the stored form keeps 32 bytes of it.
  const OString& GetName() const { return Name; }
  // Cleaned.
  void SetName(const OString& name) { Name = CleanName(name); }
  // A name as fonts have it: without double quotes, and without blanks and line ends at both ends.
  static OString CleanName(OString name);

  // The stored form, kBarCodeBlobSize or kRfidBlobSize bytes.
  uint32_t GetBlobSize() const { return kDataFontHeaderSize + BodyRoom; }
  void GetBlob(Buffer* blob) const;
  // Takes a stored form over, its name apart. Of the body, what the blob has and what the body's
  // own size says, at most the 96 bytes of a bar code or the 156 of an RFID font; the rest stays,
  // or is zero in a matrix code. The body's size becomes its kind's, unless more was taken. False,
  // with nothing changed, if the blob is too short or of a kind that isn't this class's.
  bool SetBlob(const void* blob, uint32_t size);

  DataFontHeader Header;  // its Name isn't kept up; see GetName

 protected:
  DataFont(void* body, uint32_t bodyRoom) : Body(static_cast<uint8_t*>(body)), BodyRoom(bodyRoom) {}
  // From one of the same class.
  void CopyFrom(const DataFont& other);
  // Brings a stored form that was taken over to what its class always has.
  virtual void Settle() {}

 private:
  OString Name;
  uint8_t* const Body;
  const uint32_t BodyRoom;
};

// What is made for a stored blob's kind, without its content; null for an unknown kind or a blob
// that is too short to have one.
std::unique_ptr<DataFont> NewDataFontFor(const void* blob, uint32_t size);

}  // namespace ostvt
