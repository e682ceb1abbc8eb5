#include "comm/NetworkSettings.h"

#include "comm/MonitorLink.h"
#include "core/OFile.h"
#include "core/OStringArray.h"
#include "model/BranchRecords.h"
#include "platform/KeyStore.h"
#include "store/BranchSections.h"
#include "store/TrueStore.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kBranch[] = "NETWORK:";
constexpr char kRecord[] = "network";

constexpr int32_t kLeastLines = 3;  // of a branch with a value: its header, the value, the end

// All at once: whoever dies in the middle leaves the old settings, and others never see none. False
// if the store took it not.
bool ReplaceSettings(PrinterRegistry* store, OStringArray* lines) {
  OStringArray branches;
  branches.Add(kBranch);
  store->ExpandAliasInLines(kBranch, lines);
  KeepSectionsBelow(*store, branches, lines);
  KeyStoreTransaction together(store->GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!together.IsOpen()) return false;
  if (store->GetKeyInfo(kBranch, nullptr, nullptr) && !store->Delete(kBranch, true)) return false;
  store->ImportBranch(*lines, 0);
  return together.Commit();
}

}  // namespace

bool ExportNetworkSettings(const MonitorLink& link, OStream& stream) {
  TrueStore store(link.PrinterName);
  OStringArray lines;
  const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
  if (!store.ExportBranch(kBranch, &lines, 0) || lines.Count < kLeastLines) return false;
  store.CollapseAliasInLines(kBranch, &lines);
  WriteBranchRecord(stream, kRecord, OString(), lines);
  return true;
}

bool ImportNetworkSettings(MonitorLink& link, OFile& file) {
  TrueStore store(link.PrinterName);
  const int32_t portBefore = link.GetTcpPort();
  BranchRecordReader reader(file, kRecord);
  int32_t records = 0;
  for (OStringArray lines; reader.Next(&lines);) {
    if (ReplaceSettings(&store, &lines)) ++records;
  }
  if (records > 0 && link.GetTcpPort() != portBefore) link.RestartNetwork();
  return records > 0;
}

}  // namespace ostvt
