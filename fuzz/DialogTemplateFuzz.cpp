// Dialog templates from a language module: a patch reads and writes inside its blocks, gives whole
// double words, and leaves nothing to change.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "ui/DialogTemplate.h"

namespace {

std::vector<uint8_t> Patch(const uint8_t* data, size_t size, const ostvt::TemplateTarget& target) {
  // A block of exactly the template's size, so that every access outside it is seen.
  const std::vector<uint8_t> source(data, data + size);
  ostvt::Buffer result;
  ostvt::PatchDialogTemplate(source.data(), static_cast<uint32_t>(size), target, &result);
  if (result.Size % 4 != 0) abort();
  return {result.Data, result.Data + result.Size};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const ostvt::TemplateTarget target = {"MS Shell Dlg", true};
  const std::vector<uint8_t> patched = Patch(data, size, target);
  if (size > 0 && patched.empty()) abort();
  // What was cut in the middle of a word is whole in the copy, which a second patch may then
  // change.
  const std::vector<uint8_t> second = Patch(patched.data(), patched.size(), target);
  if (Patch(second.data(), second.size(), target) != second) abort();

  // Names of rich edit boxes are as long as before.
  const std::vector<uint8_t> narrow = Patch(data, size, {"MS Shell Dlg", false});
  if (narrow.size() != patched.size()) abort();
  return 0;
}
