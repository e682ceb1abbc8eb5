// The session's texts, templates, menus and bitmaps in the user's language, and the way in which
// lengths are shown.
//
// Made with the session and by itself cheap: languages and modules are looked for at the first
// request. The modules come out of the driver's archives as temporary files, gone when the set
// closes. One thread.
#pragma once

#include <cstdint>

#include "core/Arrays.h"
#include "core/OString.h"
#include "fonts/MessageTexts.h"
#include "model/NameMap.h"
#include "platform/Libraries.h"
#include "settings/ResourceContext.h"
#include "ui/MeasureText.h"
#include "ui/windows/ActivationContext.h"
#include "ui/windows/HelpViewer.h"
#include "ui/windows/UResourceFile.h"

namespace ostvt {

class DriverSession;
class PrinterModel;

// A resource as it lies in its module; null and 0 when there is none. Valid as long as the set.
struct ResourceData {
  const uint8_t* Data = nullptr;
  uint32_t Size = 0;
};

class UResourceSet final : public ResourceContext, public MessageTexts {
 public:
  // The model is the session's; null: there are no modules, and the settings are the locale's.
  explicit UResourceSet(PrinterModel* model);
  UResourceSet(const UResourceSet&) = delete;
  UResourceSet& operator=(const UResourceSet&) = delete;
  ~UResourceSet() override;

  // LoadText under its other names.
  OString GetString(int32_t number) override;
  OString GetMessage(int32_t number) const override;

  // A dialog template, patched for this system once and kept. Null if no module has it; `size` may
  // be null.
  const DLGTEMPLATE* LoadTemplate(const OString& name, uint32_t* size = nullptr);
  OString LoadText(int32_t id);
  // A new menu, the caller's; null if there is none.
  HMENU LoadMenu(const OString& name);
  // A bitmap's header, colours and bits.
  ResourceData LoadBitmap(int32_t id);
  // Of the first module that has it.
  ResourceData Find(uint16_t type, const char16_t* name);
  // A further module, looked into after those that are there.
  void AddModule(UResourceFile* module);  // the set's from then on

  // The system in force: kMeasureInches, kMeasureMillimetres or kMeasureCentimetres.
  int32_t GetMeasurement();
  // As it is stored: 0 for what the locale says.
  int32_t GetMeasurementSetting();
  void SetMeasurement(int32_t value);
  // As it is stored: three letters, "sys" for the system's.
  OString GetLanguage();
  void SetLanguage(const OString& language);  // for the next session
  // Three letters: the one that the modules were chosen by.
  OString GetLanguageInForce();
  // Language and measurement to the user's settings.
  void SaveSettings();
  // The path of the language's help file, there or not.
  OString GetHelpFile();
  // False when the system has no viewer for it.
  bool ShowHelp(const OString& topic);
  // What pages are made in; may be null.
  HANDLE GetActivationContext() { return Activation.Get(); }
  // The signs, or plain letters where the language's code page may lack them.
  OString GetSymbolCopyright();
  OString GetSymbolTrademark();
  OString GetSymbolRegistered();

  // See ui/MeasureText.h.
  OString FormatMeasure(int32_t value);
  int32_t ParseMeasure(const OString& text);
  OString FormatDots(int32_t dots, int32_t dpi);
  OString FormatResolution(int32_t dpi);
  OString FormatResolutionPair(int32_t x, int32_t y);
  const MeasureStyle& GetStyle();
  OString GetThousandSeparator();

 private:
  void Initialize();
  void InitializeWindows();
  void ReadSettings();
  void OpenModules();
  void LoadUnitText();
  OString FindText(int32_t id);
  OString ResolutionUnit();

  PrinterModel* Model;
  PointerArray Modules;   // of UResourceFile, owned
  NameMap TemplateCache;  // of Buffer, owned
  bool Initialized = false;
  bool WindowsInitialized = false;
  platform::LibraryHandle RichEditLibrary = nullptr;
  OString HelpFile;
  OString Language;
  OString SystemLanguage;
  OString LanguageInForce;
  int32_t Measurement = kMeasureSystemDefault;
  int32_t SystemMeasurement = kMeasureMillimetres;
  MeasureStyle Style;  // of the system in force, with the locale's separators
  OString ThousandSeparator;
  HelpViewer Help;
  ActivationContext Activation;
};

// The session's; made here where it has none.
UResourceSet& ResourcesOf(DriverSession* session);

}  // namespace ostvt
