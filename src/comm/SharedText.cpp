#include "comm/SharedText.h"

#include "core/LZ77.h"
#include "core/PackedText.h"
#include "platform/KeyStore.h"
#include "store/PrinterRegistry.h"
#include "store/SharedBranches.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kNeutralRoot[] = "DATA:";
constexpr KeyStoreTransaction::Purpose kWrite = KeyStoreTransaction::Purpose::kWrite;

OString ChecksumPath(const OString& branch) { return branch + "/" + kBranchChecksum; }

}  // namespace

void SharedChecksums::Keep(const OString& branch) {
  const OString path = ChecksumPath(branch);
  Kept.push_back({path, Store.GetValueSize(path) >= 0, Store.ReadDword(path, 0)});
}

void SharedChecksums::Restore() {
  KeyStoreTransaction together(Store.GetDataHive(), kWrite);
  for (const Checksum& checksum : Kept) {
    if (checksum.WasThere) {
      Store.WriteDword(checksum.Path, checksum.Before);
    } else {
      Store.Delete(checksum.Path, false);
    }
  }
  together.Commit();
}

OString ListSharedBranches(PrinterRegistry& store, SharedChecksums* before) {
  KeyStoreTransaction together(store.GetDataHive(), kWrite);
  OString list;
  OStringArray branches;
  store.ListBranchRoots(&branches);
  for (int32_t i = 0; i < branches.Count; ++i) {
    OStringArray lines;
    if (before) before->Keep(branches[i]);
    store.ExportBranch(branches[i], &lines, kExportChecksum);
    list += "\"" + branches[i] + "\",";
    list += OString::HexOf(store.ReadDword(ChecksumPath(branches[i]), 0));
    list += ";";
  }
  together.Commit();
  return list;
}

bool ImportShared(PrinterRegistry& store, Buffer* answer) {
  if (!LZ77::DecodeInPlace(answer)) return false;
  OStringArray lines;
  lines.SplitBlock(answer->Data, answer->Size, BlockMode::kLines, kCodePageUtf8);
  store.ExpandAliasInLines(kNeutralRoot, &lines);
  KeepSharedSections(store, &lines);
  if (lines.Count == 0) return true;
  KeyStoreTransaction together(store.GetDataHive(), kWrite);
  if (!together.IsOpen()) return false;
  const OString root = store.Root;
  store.ImportBranch(lines, kImportEmptying);
  store.Root = root;
  // With the checksums of before the next push would send all of it back.
  ListSharedBranches(store);
  return together.Commit();
}

SharedChanges::SharedChanges(PrinterRegistry& store) : Before(store) {
  KeyStoreTransaction together(store.GetDataHive(), kWrite);
  OStringArray branches;
  store.ListBranchRoots(&branches);
  for (int32_t i = 0; i < branches.Count; ++i) {
    const OString path = ChecksumPath(branches[i]);
    const uint32_t before = store.ReadDword(path, 0);
    Before.Keep(branches[i]);
    OStringArray lines;
    store.ExportBranch(branches[i], &lines, kExportChecksum);
    if (store.ReadDword(path, 0) != before) Lines.Append(lines);
  }
  store.CollapseAliasInLines(kNeutralRoot, &Lines);
  together.Commit();
}

OString SharedChanges::Pack() const {
  Buffer text;
  Lines.JoinBlock(&text, BlockMode::kLines, kCodePageUtf8);
  return PackText(text.Data, text.Size);
}

}  // namespace ostvt
