#include "platform/KeyPath.h"

namespace ostvt::platform {
namespace {

constexpr size_t kNameLimit = 255;
constexpr int kDepthLimit = 512;

}  // namespace

bool IsKeyPath(std::u16string_view path) {
  if (path.empty()) return true;
  int depth = 1;
  size_t start = 0;
  for (size_t i = 0; i <= path.size(); ++i) {
    if (i < path.size() && path[i] != u'\\') continue;
    if (i == start || i - start > kNameLimit || depth > kDepthLimit) return false;
    ++depth;
    start = i + 1;
  }
  return true;
}

}  // namespace ostvt::platform
