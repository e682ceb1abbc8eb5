// Whole settings files from outside, of each kind: what a session takes in is counted, in order and
// inside the model's limits, its device mode stays whole, and the same file brings the same again.
#include <cstdlib>
#include <cstring>
#include <string>

#include "fuzz/FuzzModel.h"
#include "settings/DriverOptions.h"
#include "settings/DriverSession.h"
#include "store/PrinterRegistry.h"

namespace {

using namespace ostvt;
using fuzz::TheModel;

// Of a session that ends with the scope; the model is everybody's.
class FuzzSession {
 public:
  FuzzSession() {
    Session.NoShadowPush = true;
    Session.Model = TheModel();
    Session.PrinterName = Session.Link.PrinterName = "Fuzz";
    Session.Link.Loader = &Nobody;
    Session.DevModeBuffer.AllocateDefaults(TheModel());
  }
  ~FuzzSession() { Session.Model = nullptr; }

  DriverSession Session;

 private:
  class NoMonitor : public MonitorLoader {
   public:
    void* Open() override { return nullptr; }
  };
  NoMonitor Nobody;
};

std::string PutFile(const uint8_t* data, size_t size) {
  static const test::TempDirectory directory;
  return directory.Put("in.sds", std::string(reinterpret_cast<const char*>(data), size));
}

// No run is to find what an earlier one left.
void CleanStore() {
  PrinterRegistry store(OString("Fuzz"));
  store.Delete("Settings:", true);
  store.Delete("NETWORK:", true);
  DriverOptions options;
  options.Bind(TheModel());
  options.Forget();
  TheModel()->Invalidate();
}

void Check(DriverSession& session, const ImportResult& taken) {
  if (session.StockLoaded && session.Stock.GetCount() > taken.Stock + 1) abort();
  if (session.PresetsLoaded && session.Presets.GetCount() != taken.Presets + 2) abort();
  if (session.DataFonts.GetCount() > taken.DataFonts) abort();
  if (session.FontMappings.GetCount() > taken.AliasFonts + taken.Substitutions) abort();
  if (session.DownloadedFonts.GetCount() > taken.DownloadedFonts) abort();
  if (session.OptionalFonts.GetCount() > taken.OptionalFonts) abort();
  if (session.DevModeBuffer.GetSize() != kDevModeSize) abort();
  if (!session.DevModeBuffer.GetRecord().Record) abort();
  for (const StockItem* item = session.Stock.GetFirst(); item; item = item->GetNext()) {
    if (item->Name.IsEmpty() || item->IsUserForm() != (item->PaperId == kUserPaperId)) abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const OString path = PutFile(data, size).c_str();
  ImportResult first;
  ImportResult second;
  {
    FuzzSession one;
    one.Session.ImportSettings(path, kAllSections, &first);
    Check(one.Session, first);
  }
  if (first.Options || first.Network) CleanStore();
  {
    FuzzSession another;
    another.Session.ImportSettings(path, kAllSections, &second);
    Check(another.Session, second);
  }
  if (second.Options || second.Network) CleanStore();
  if (memcmp(&first, &second, sizeof(first)) != 0) abort();

  FuzzSession none;
  ImportResult nothing;
  none.Session.ImportSettings(path, 0, &nothing);
  if (CountAll(nothing) != 0) abort();
  return 0;
}
