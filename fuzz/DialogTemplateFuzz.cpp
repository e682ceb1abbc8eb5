// Dialog templates from a language module: a patch reads and writes inside its blocks, gives whole
// double words, and leaves nothing to change; and what is kept of it is shown without looking
// behind it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "ui/DialogTemplate.h"
#include "ui/TemplateBounds.h"

namespace {

std::vector<uint8_t> Patch(const uint8_t* data, size_t size, const ostvt::TemplateTarget& target) {
  // A block of exactly the template's size, so that every access outside it is seen.
  const std::vector<uint8_t> source(data, data + size);
  ostvt::Buffer result;
  ostvt::PatchDialogTemplate(source.data(), static_cast<uint32_t>(size), target, &result);
  if (result.Size % 4 != 0) abort();
  return {result.Data, result.Data + result.Size};
}

// Goes through a template as whoever shows it does: without its size.
class Shown {
 public:
  explicit Shown(const std::vector<uint8_t>& bytes) : At(bytes.data()) {
    const uint8_t* start = At;
    const bool isExtended = Word() == 1 && Word() == 0xFFFF;
    At = start + (isExtended ? 12 : 0);
    const uint32_t style = Dword();
    if (!isExtended) At += 4;
    const int controls = Word();
    At += 8;
    Name();
    Name();
    Text(Word());
    if ((style & 0x40) && Word() != 0x7FFF) {
      if (isExtended) At += 4;
      Text(Word());
    }
    for (int i = 0; i < controls; ++i) {
      At += (4 - (At - start) % 4) % 4;
      At += isExtended ? 20 : 16;
      Word();
      if (isExtended) Word();
      Name();
      Name();
      At += Word();
    }
  }

 private:
  uint16_t Word() {
    const uint32_t low = *At++;
    return static_cast<uint16_t>(low | uint32_t{*At++} << 8);
  }
  uint32_t Dword() {
    const uint32_t low = Word();
    return low | uint32_t{Word()} << 16;
  }
  void Name() {
    const uint16_t unit = Word();
    if (unit == 0xFFFF) {
      Word();
      return;
    }
    Text(unit);
  }
  void Text(uint16_t unit) {
    while (unit != 0) unit = Word();
  }

  const uint8_t* At;
};

void Show(const std::vector<uint8_t>& patched) {
  ostvt::Buffer kept;
  kept.Resize(static_cast<uint32_t>(patched.size()));
  std::copy(patched.begin(), patched.end(), kept.Data);
  ostvt::KeepTemplateInside(&kept);
  Shown(std::vector<uint8_t>(kept.Data, kept.Data + kept.Size));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const ostvt::TemplateTarget target = {"MS Shell Dlg", true};
  const std::vector<uint8_t> patched = Patch(data, size, target);
  if (size > 0 && patched.empty()) abort();
  Show(patched);
  // What was cut in the middle of a word is whole in the copy, which a second patch may then
  // change.
  const std::vector<uint8_t> second = Patch(patched.data(), patched.size(), target);
  if (Patch(second.data(), second.size(), target) != second) abort();

  // Names of rich edit boxes are as long as before.
  const std::vector<uint8_t> narrow = Patch(data, size, {"MS Shell Dlg", false});
  if (narrow.size() != patched.size()) abort();
  return 0;
}
