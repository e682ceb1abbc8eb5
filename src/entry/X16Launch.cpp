#include "entry/X16Launch.h"

#include <memory>

#include "entry/PageMessage.h"
#include "model/PrinterModel.h"
#include "settings/DriverSession.h"
#include "settings/LaunchKey.h"
#include "settings/SessionEnd.h"
#include "store/OpenedPrinter.h"
#include "store/PrinterId.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr uint32_t kChannelWake = 1025;
constexpr uint32_t kChannelFinished = 1027;

constexpr int32_t kResultJoined = 1;
constexpr int32_t kResultFailed = 2;

uint32_t WantedPages(const LaunchKey& key) {
  uint32_t pages = kPagesGraphics;
  if (key.EditsDefaults()) pages |= kPagesFonts;
  if (!key.HidesAdvancedPages()) pages |= kPagesSetup;
  return pages;
}

void TakeMessage(DriverSession* session, uint32_t* pages) {
  PrinterRegistry& store = session->Model->GetStore();
  const uint32_t message = store.ReadDword(kPageMessage, 0);
  if (message == 0) return;
  if (message == kMessageFonts || message == kMessageCache) {
    *pages = message == kMessageCache ? kPagesCache : kPagesFonts;
    session->KeepAboutClosed();
  }
  store.Delete(kPageMessage, false);
}

void ReadInput(const LaunchKey& key, platform::PrinterHandle printer, DevMode* input) {
  PrinterId printerId(printer);
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(printerId));
  if (model) key.ReadDevMode(model.get(), input);
}

struct SessionEnder {
  void operator()(DriverSession* session) const { EndSession(session); }
};

int32_t ShowLaunched(platform::ChannelWindow channel, const OString& channelName,
                     LaunchSheetFunction showSheet) {
  const LaunchKey key(channelName);
  OpenedPrinter printer(key.GetPrinterName().GetWide(), platform::kPrinterAllAccess);
  if (!printer.IsOpen() || !showSheet) return kResultFailed;
  DevMode input;
  ReadInput(key, printer.Handle(), &input);
  std::unique_ptr<DriverSession, SessionEnder> session(CreateDriverSession());
  if (!session) return kResultFailed;
  session->Initialize(printer.Handle(), &input, kSessionMerge);
  if (!session->Model) return kResultFailed;
  session->DefaultsMode = key.EditsDefaults();
  session->ChannelWindow = channel;
  session->ChannelName = channelName;
  uint32_t pages = WantedPages(key);
  TakeMessage(session.get(), &pages);
  session->RegisterPages(pages);
  session->AddAboutPage();
  const bool joinsProperties = key.JoinsProperties();
  const int32_t result = showSheet(session.get(), joinsProperties);
  return joinsProperties ? kResultJoined : result;
}

}  // namespace

void ServeLaunch(platform::ChannelWindow channel, const char* channelName,
                 LaunchSheetFunction showSheet) {
  platform::SendToChannel(channel, kChannelWake);
  const int32_t result = ShowLaunched(channel, channelName, showSheet);
  platform::PostToChannel(channel, kChannelFinished, static_cast<uint32_t>(result));
}

}  // namespace ostvt
