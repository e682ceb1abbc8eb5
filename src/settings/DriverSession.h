// The object behind every operation on one printer: each property sheet and each client of the
// exports makes one, uses it and deletes it, with EndSession where windows may be open.
//
// A session on a printer that can't be identified has no Model and stays empty; every operation
// then does nothing. No step reports a failure: what could not be had is absent. One thread: the
// one that made it.
#pragma once

#include <cstdint>
#include <memory>

#include "comm/MonitorLink.h"
#include "core/OString.h"
#include "core/OStringArray.h"
#include "fonts/CustomCharacterSetTable.h"
#include "fonts/DataFontTable.h"
#include "fonts/DownloadedFontList.h"
#include "fonts/FontMappingTable.h"
#include "fonts/OptionalFontTable.h"
#include "platform/Channel.h"
#include "platform/Spooler.h"
#include "settings/DevMode.h"
#include "settings/PresetList.h"
#include "settings/ResourceContext.h"
#include "settings/SessionRecords.h"
#include "settings/SessionWindows.h"
#include "settings/SettingsSections.h"
#include "settings/StockList.h"

namespace ostvt {

class OFile;
class OStream;
class PrinterModel;
class PrinterPort;

// Bits of SessionFlags. The first three are the caller's, by the platform's numbers.
inline constexpr uint32_t kSessionUpdate = 1;  // the printer's stored device mode is to be updated
inline constexpr uint32_t kSessionCopy = 2;    // the caller wants the device mode back
inline constexpr uint32_t kSessionMerge = 8;   // an input device mode is to be merged
inline constexpr uint32_t kSessionDefaults = 64;  // the printer's default settings are edited

// Bits of RegisterPages.
inline constexpr uint32_t kPagesFonts = 1;  // fonts and tools
inline constexpr uint32_t kPagesGraphics = 2;
inline constexpr uint32_t kPagesSetup = 4;
inline constexpr uint32_t kPagesCache = 8;

// The sheet host's callback.
using SheetCallbackFunction = intptr_t (*)(void* sheet, uint32_t function, intptr_t first,
                                           intptr_t second);

// What the user did about a monitor that doesn't answer.
enum class MonitorFailureAnswer {
  kNotShown,  // nobody could be asked: the session goes on as it is
  kAgain,     // the monitor is to be tried again
  kTurnOff,   // network communication is to be turned off
};
using MonitorFailureFunction = MonitorFailureAnswer (*)(DriverSession* session, bool isClient);

// Asks in a dialog of the session's windows: one for clients, one for the printer's own machine.
MonitorFailureAnswer ShowMonitorFailureDialog(DriverSession* session, bool isClient);

// How many bytes of a file are on their way.
using SendProgressFunction = void (*)(void* context, uint32_t sent, uint32_t total);

class DriverSession {
 public:
  DriverSession() = default;
  DriverSession(const DriverSession&) = delete;
  DriverSession& operator=(const DriverSession&) = delete;

  // What a family may change. The order is part of the interface.
  virtual ~DriverSession();
  // The end of Initialize: everything that the model's store holds for the session.
  virtual void LoadSettings();
  // Adds the pages that kPages... bits name to the sheet; how many were added.
  virtual int32_t RegisterPages(uint32_t pageFlags);
  virtual void GetCacheInfo(CacheInfo* record);
  virtual int32_t GetLinkClass();
  virtual void Reserved0();
  virtual void GetFontNameRules(NameRules* record);
  virtual bool ValidateFontName(NameRequest* request);
  virtual void Reserved1();
  virtual void GetFileNameRules(NameRules* record);
  virtual bool ValidateFileName(NameRequest* request);
  virtual bool Reserved2();
  virtual bool SupportsCacheCommand(PrinterPort* port);
  // Actions by number, see SessionActions.h. False when nothing was done: the action doesn't exist,
  // what it needs can't be had, the user chose no file. A window that was shown is enough.
  virtual bool DoAction(ActionContext* context, int32_t action);
  // kAction... bits.
  virtual uint32_t GetActionFlags(ActionContext* context, int32_t action);
  // Empty for an action without a title.
  virtual void GetActionTitle(OString* result, int32_t action);

  // Once, before anything else. The handle stays the caller's and open; null with a `printerName`
  // means that printer. `inputDevMode` (may be null) counts only with kSessionMerge.
  void Initialize(platform::PrinterHandle printerHandle, const DevMode* inputDevMode,
                  uint32_t flags, const OString& printerName = OString());
  // Writes what changed to the store, and the device mode as the one that new sessions begin with.
  // False without a model, and if the store didn't take all of it; what a server makes of it
  // doesn't count.
  bool Save();
  // Reads the lists anew; the device mode, the optional fonts and the custom character sets stay.
  void Reload();
  // The printer's stock, read on the first call. The session's.
  StockList& GetStock();
  // The printer's presets with the built-in ones, read on the first call. The session's.
  PresetList& GetPresets();
  // The session's device mode and the model's defaults as presets, in place of earlier ones of that
  // kind.
  void AddBuiltInPresets();
  // Copies of the other session's presets take the place of this one's; Save then writes them.
  void CopyPresetList(DriverSession& other);
  // Writes the chosen sections (kSectionStock and others) to a settings file, in place of one that
  // is there. The file is written whole or not at all: false then, and the counts are 0. `result`
  // may be null.
  bool ExportSettings(const OString& path, uint32_t sections, ExportResult* result);
  // Takes the chosen sections of a settings file, of whichever kind, into the session's lists and
  // device mode; options and network settings go to the store at once, the rest with Save. A file
  // that can't be read, or of more than 64 MiB, brings nothing. `result` may be null.
  void ImportSettings(const OString& path, uint32_t sections, ImportResult* result);
  // Removes the chosen sections from the store, brings the session back to defaults, and imports
  // the same sections of the file "Defaults.sds" beside the module, if it is there. Save then
  // writes what that brought.
  void ResetSettings(uint32_t sections);
  // The file's bytes as they are, as a job of its name. False, with nothing sent, when the file
  // can't be read whole, holds more than 2 GiB, or the job can't be opened; false too when the
  // printer didn't take all of it. `progress` may be null; it is called in between.
  bool SendFile(const OString& path, SendProgressFunction progress = nullptr,
                void* context = nullptr);
  // The device mode as a text record of a settings file.
  void ExportDefaultDevMode(OStream& stream) const;
  // From all such records of the file that are meant for `model`, the later over the earlier. True
  // if there was one; on the spooler path it is then the printer's stored device mode too.
  bool ImportDefaultDevMode(OFile& stream, PrinterModel* model);
  // Asks the monitor, and where it is missed holds the user until it answers, network communication
  // is turned off or nobody can be asked.
  void MonitorFailureDialog();
  // The monitor's window for this printer. False where it can't be started, as on Linux. `wait` is
  // the window's state (see platform/Process.h); nobody waits.
  bool LaunchStatusMonitor(const OString& verb, int32_t wait);
  bool OpenStatusMonitor(int32_t wait);
  bool CloseStatusMonitor();
  // See comm/NetworkSettings.h.
  bool ExportNetworkSettings(OStream& stream) const;
  bool ImportNetworkSettings(OFile& stream);
  // After an apply: what was edited becomes what a cancel goes back to, and the 16-bit partner and
  // the sheet's host are told.
  void NotifyApplied();
  // See SessionWindows. False where the dialog can't be shown.
  bool RunDialog(void* owner, const OString& templateName);
  // The page of a sheet, by its template, as the last one. On the 16-bit path it is only kept in
  // PendingPageNames, for the sheet that is made later.
  bool AddPage(const OString& templateName);
  // The maker's About page, where there is one. Every sheet has it last.
  bool AddAboutPage();
  // Of the language module; empty without one.
  OString GetString(int32_t number) const;
  // The About page is not to be the page shown first.
  void KeepAboutClosed();
  // The maker wants the About page shown first, the sheet has it, and nothing speaks against it.
  bool IsAboutFirst();
  // The session edits the printer's defaults, not those of one document.
  bool IsDefaultsSession() const;
  // The user's level is too low to change settings. Asked once per session.
  bool IsLocked();

  // Of this module's version record; empty where it says nothing.
  OString GetProductVersion() const;
  OString GetProductTag() const;
  OString GetBuildDate() const;
  OString GetScmBranch() const;
  OString GetScmRevision() const;

  // Set by whoever makes the session, before Initialize; borrowed. Null: there are no windows.
  const SessionWindows* Windows = nullptr;
  std::unique_ptr<ResourceContext> Resources;  // may be null: all texts are then empty
  PrinterModel* Model = nullptr;               // owned
  DevMode DevModeBuffer;                       // the working device mode
  DevMode SavedDevMode;                        // as it stood when the session loaded; may be empty
  DownloadedFontList DownloadedFonts;
  DataFontTable DataFonts;
  FontMappingTable FontMappings;
  OptionalFontTable OptionalFonts;
  CustomCharacterSetTable FontEncodings;  // saved by the page that edits it, not by Save
  platform::PrinterHandle PrinterHandle = nullptr;
  bool DefaultsMode = false;  // IsDefaultsSession on the 16-bit path
  // The 16-bit partner that the session works for; empty and null without one.
  OString ChannelName;
  platform::ChannelWindow ChannelWindow = nullptr;
  MonitorLink Link;
  PrinterPort* Port = nullptr;  // the way to the printer, where the family has one; the family's
  // Set by whoever makes the session, before Initialize. Null: the dialog of Windows.
  MonitorFailureFunction ShowMonitorFailure = nullptr;
  uint32_t DevModeCrc = 0;  // of the whole device mode at load
  OString PrinterName;
  bool AboutMayOpenFirst = true;
  uint32_t SessionFlags = 0;
  // The sheet host's context, from the start of a sheet on. The page handles are a counted block
  // (see core/Memory.h) and the session's.
  void* SheetHandle = nullptr;
  void** PageHandles = nullptr;
  int32_t PageCount = 0;
  bool IsApplied = false;  // the settings were applied and the sheet's caller doesn't have them yet
  SheetCallbackFunction SheetCallback = nullptr;
  // Called first in the destructor, when what a family adds is gone already: whoever watches the
  // session from outside lets go of it.
  void (*AtEnd)(DriverSession* session) = nullptr;
  OStringArray PendingPageNames;   // templates, see AddPage
  void* DialogArgument = nullptr;  // for the dialog being opened; the opener's
  PresetList Presets;              // empty until PresetsLoaded; see GetPresets
  bool PresetsLoaded = false;
  StockList Stock;  // empty until StockLoaded; see GetStock
  bool StockLoaded = false;
  bool NoShadowPush = false;  // closing and saving tell the server nothing
  int32_t KeeperCount = 0;    // see SessionEnd.h
  bool IsEnded = false;       // EndSession was called and has to wait

 private:
  // False: model defaults stand in.
  bool LoadDefaultDevMode();
  bool LoadNarrowDevMode();
  bool StoreDefaultDevMode();

  bool HasAboutPage = false;
  bool BuiltInPresetsAdded = false;
  bool Locked = false;
  bool LockedKnown = false;
};

// The family's factory. The caller deletes the session; null when memory is short.
DriverSession* CreateDriverSession();

}  // namespace ostvt
