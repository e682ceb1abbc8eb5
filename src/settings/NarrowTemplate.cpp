#include "settings/NarrowTemplate.h"

#include <cstring>
#include <string>

#include "core/LittleEndian.h"
#include "core/OString.h"

namespace ostvt {
namespace {

constexpr uint16_t kExtendedSignature = 0xFFFF;  // the second word of an extended template
constexpr uint16_t kNumberFollows = 0xFFFF;      // in place of a text
constexpr uint32_t kPlainHead = 18;
constexpr uint32_t kExtendedHead = 26;
constexpr uint32_t kFontStyle = 1u << 6;
constexpr int kPlaceFields = 4;  // x, y, cx, cy

// Reads what lies inside the template; behind it all is 0.
class Reader {
 public:
  Reader(const void* bytes, uint32_t size)
      : Bytes(static_cast<const uint8_t*>(bytes)), Size(size) {}

  bool Has(uint32_t size) const { return Size - Position >= size; }
  void Skip(uint32_t size) { Position += Has(size) ? size : Size - Position; }
  uint16_t Word() {
    const uint32_t at = Position;
    const bool isInside = Has(2);
    Skip(2);
    return isInside ? ReadLittleWord(Bytes + at) : uint16_t{0};
  }
  uint32_t Dword() {
    const uint32_t low = Word();
    return low | uint32_t{Word()} << 16;
  }
  OString Text() {
    std::u16string text;
    while (const uint16_t unit = Word()) text += static_cast<char16_t>(unit);
    return text.c_str();
  }
  // A text, or the number that stands in its place and has none.
  OString TextOrNumber() {
    const uint32_t start = Position;
    if (Word() == kNumberFollows) {
      Skip(2);
      return OString();
    }
    Position = start;
    return Text();
  }

 private:
  const uint8_t* Bytes;
  uint32_t Size;
  uint32_t Position = 0;
};

// Writes what fits and counts all.
class Writer {
 public:
  Writer(void* buffer, uint32_t room)
      : Buffer(static_cast<uint8_t*>(buffer)), Room(buffer ? room : 0) {}

  void Byte(uint32_t value) {
    if (Length < Room) Buffer[Length] = static_cast<uint8_t>(value);
    ++Length;
  }
  void Word(uint32_t value) {
    Byte(value);
    Byte(value >> 8);
  }
  void Dword(uint32_t value) {
    Word(value);
    Word(value >> 16);
  }
  void Text(const OString& text) {
    for (const char* at = text.GetNarrow(); *at; ++at) Byte(static_cast<uint8_t>(*at));
    Byte(0);
  }
  uint32_t Written() const { return Length; }

 private:
  uint8_t* Buffer;
  uint32_t Room;
  uint32_t Length = 0;
};

bool IsExtended(Reader reader) {
  reader.Skip(2);
  return reader.Word() == kExtendedSignature;
}

}  // namespace

uint32_t MakeNarrowTemplate(const void* dialogTemplate, uint32_t size, void* buffer,
                            uint32_t bufferSize) {
  Reader reader(dialogTemplate, dialogTemplate ? size : 0);
  const bool isExtended = IsExtended(reader);
  if (!reader.Has(isExtended ? kExtendedHead : kPlainHead)) return 0;
  Writer writer(buffer, bufferSize);
  // Extended: version, signature, help id, extended style, style. Plain: style, extended style.
  if (isExtended) reader.Skip(12);
  const uint32_t style = reader.Dword();
  if (!isExtended) reader.Skip(4);
  writer.Dword(style);
  writer.Byte(0);
  writer.Byte(reader.Word());
  for (int i = 0; i < kPlaceFields; ++i) writer.Word(reader.Word());
  writer.Text(reader.TextOrNumber());  // menu
  writer.Text(reader.TextOrNumber());  // class
  writer.Text(reader.Text());          // title
  if ((style & kFontStyle) != 0) {
    writer.Word(reader.Word());
    if (isExtended) reader.Skip(4);  // weight, italic, character set
    writer.Text(reader.Text());
  }
  return writer.Written();
}

}  // namespace ostvt
