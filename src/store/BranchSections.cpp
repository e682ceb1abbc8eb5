#include "store/BranchSections.h"

#include <string>
#include <string_view>

#include "store/BranchText.h"

namespace ostvt {
namespace {

bool IsAtOrBelow(const OString& key, const OString& branch) {
  const std::u16string_view path = key.GetWide();
  const std::u16string_view root = branch.GetWide();
  const std::u16string head(path.substr(0, root.size()));
  if (OString(head.c_str()).CompareNoCase(branch) != 0) return false;
  return path.size() == root.size() || path[root.size()] == u'/' || root.ends_with(u':');
}

// The canonical form of a key path; empty if it is none.
OString Canonical(const ORegistry& store, const OString& path) {
  OString key = path;
  OString value;
  if (!store.SplitPath(&key, &value)) return OString();
  key.TrimRight("/");
  return key;
}

}  // namespace

void KeepSectionsBelow(const ORegistry& store, const OStringArray& branches, OStringArray* lines) {
  OStringArray roots;
  for (int32_t i = 0; i < branches.Count; ++i) {
    const OString root = Canonical(store, branches[i]);
    if (!root.IsEmpty()) roots.Add(root);
  }
  const auto isOurs = [&store, &roots](const OString& path) {
    // Compared as the store is going to open it.
    const OString key = Canonical(store, path);
    for (int32_t i = 0; i < roots.Count; ++i) {
      if (IsAtOrBelow(key, roots[i])) return true;
    }
    return false;
  };

  OStringArray kept;
  bool inSection = false;
  bool keeps = false;
  for (int32_t i = 0; i < lines->Count; ++i) {
    const BranchLine line((*lines)[i]);
    if (!inSection) {
      BranchHeader header;
      if (!ParseBranchHeader(line.Text, &header)) continue;
      keeps = isOurs(header.Key);
      inSection = !header.IsDeletion;
    } else if (line.Text.empty()) {
      inSection = false;
    }
    if (keeps) kept.Add((*lines)[i]);
  }
  lines->Copy(kept);
}

}  // namespace ostvt
