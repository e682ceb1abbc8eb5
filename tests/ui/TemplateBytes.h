// Dialog templates written by hand, field by field.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace ostvt::test {

class TemplateBytes {
 public:
  TemplateBytes& Byte(uint32_t value) {
    Bytes.push_back(static_cast<uint8_t>(value));
    return *this;
  }
  TemplateBytes& Word(uint32_t value) { return Byte(value).Byte(value >> 8); }
  TemplateBytes& Dword(uint32_t value) { return Word(value).Word(value >> 16); }
  TemplateBytes& Text(std::u16string_view text) {
    for (const char16_t unit : text) Word(unit);
    return Word(0);
  }
  TemplateBytes& Align() {
    while (Bytes.size() % 4 != 0) Byte(0);
    return *this;
  }
  // The head up to the menu; the place is 7, 8, 9, 10.
  TemplateBytes& PlainHead(uint32_t style, uint32_t controls) {
    return Dword(style).Dword(0).Word(controls).Word(7).Word(8).Word(9).Word(10);
  }
  TemplateBytes& ExtendedHead(uint32_t style, uint32_t controls) {
    Word(1).Word(0xFFFF).Dword(0x11223344).Dword(0).Dword(style);
    return Word(controls).Word(7).Word(8).Word(9).Word(10);
  }
  // A control behind what is there; `type` is a class by name.
  TemplateBytes& PlainControl(uint32_t id, std::u16string_view type, std::u16string_view text,
                              uint32_t style = 0x50010000) {
    Align().Dword(style).Dword(0).Word(1).Word(2).Word(30).Word(12).Word(id);
    return Text(type).Text(text).Word(0);
  }

  std::vector<uint8_t> Bytes;
};

inline constexpr uint32_t kStyleFont = 0x40;

}  // namespace ostvt::test
