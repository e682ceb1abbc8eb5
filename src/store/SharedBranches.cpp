#include "store/SharedBranches.h"

#include "store/BranchSections.h"
#include "store/BranchText.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr char kDataRoot[] = "DATA:";
constexpr char kLocalRoot[] = "LOCAL:";

// The name of the branch that `key` lies in, if `root` is the key above it; else "".
OString BranchBelow(const PrinterRegistry& store, const char* root, const OString& key) {
  OString rootKey = root;
  OString none;
  if (!store.SplitPath(&rootKey, &none)) return {};
  rootKey.TrimRight("/");
  OString path = key;
  if (!store.SplitPath(&path, &none)) return {};
  const int head = rootKey.Length();
  if (path.Left(head).CompareNoCase(rootKey) != 0 || path.Mid(head, 1).CompareNoCase("/") != 0) {
    return {};
  }
  const OString rest = path.Mid(head + 1);
  const int end = rest.Find('/');
  return end < 0 ? rest : rest.Left(end);
}

// The branches that the text's sections lie in, as far as they are a configuration's.
void ListNamedBranches(const PrinterRegistry& store, const OStringArray& lines,
                       OStringArray* branches) {
  for (int32_t i = 0; i < lines.Count; ++i) {
    const BranchLine line(lines[i]);
    BranchHeader header;
    if (!ParseBranchHeader(line.Text, &header)) continue;
    OString branch;
    if (const OString data = BranchBelow(store, kDataRoot, header.Key); !data.IsEmpty()) {
      branch = kDataRoot + data;
    } else if (const OString local = BranchBelow(store, kLocalRoot, header.Key);
               !local.IsEmpty() && !IsMachinesOwnBranch(ORegistry::Unescape(local))) {
      branch = kLocalRoot + local;
    }
    if (!branch.IsEmpty() && branches->Find(branch) < 0) branches->Add(branch);
  }
}

}  // namespace

bool IsMachinesOwnBranch(const OString& name) {
  for (const char* branch : kMachinesOwnBranches) {
    if (name.CompareNoCase(branch) == 0) return true;
  }
  return false;
}

void KeepSharedSections(const PrinterRegistry& store, OStringArray* lines) {
  OStringArray branches;
  ListNamedBranches(store, *lines, &branches);
  KeepSectionsBelow(store, branches, lines);
}

}  // namespace ostvt
