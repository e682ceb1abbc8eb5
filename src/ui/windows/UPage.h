// The base of every page of a property sheet and of every dialog.
//
// A page lives from its window's first message to the window's end, or until the last message that
// is being handled then is done with; StartPage<Page> makes it. It changes settings by writing them
// into the session's device mode, and has no flag to set: after every command that OnCommand
// doesn't report as handled, and every notification likewise, Update runs and the sheet learns by a
// checksum whether the device mode differs from the one last applied. One thread: that of the
// sheet.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "settings/DevMode.h"
#include "ui/windows/UWindow.h"

namespace ostvt {

class DriverSession;
class PrinterRegistry;
class UResourceSet;
struct ModelRecord;

// Messages to the pages of a sheet, see SendToSiblings.
inline constexpr uint32_t kSiblingUpdate = 7000;   // Update, with whether the value isn't 0
inline constexpr uint32_t kSiblingInitial = 7001;  // Update(true)
inline constexpr uint32_t kSiblingPrivate = 7002;  // OnPrivate

class UPage : public UWindow {
 public:
  // The order of these is part of the interface.
  ~UPage() override;
  void GetText(OString* result, int32_t id) override;
  int32_t GetMeasurement() override;
  bool OnDrawItem(const DRAWITEMSTRUCT* item) override;
  // Brings the controls up to date with the settings. The only place that writes to them.
  virtual void Update(bool initial);
  // `code` is the control's; `param` its window, for a scroll bar its value. True: handled, nothing
  // has changed. Id 9 with code 0 (Help) doesn't come here, nor in a dialog 1 and 2 (OK, Cancel).
  virtual bool OnCommand(int32_t id, uint32_t code, LPARAM param);
  // True: handled. The answer to the control is what SetResult left, else 0.
  virtual bool OnNotify(int32_t control, uint32_t code, NMHDR* header);
  // The base's must run first in an overriding one. Record() answers from here on.
  virtual void OnInitDialog();
  virtual void OnHelp();
  virtual void OnApply();
  virtual void OnReset();
  virtual void OnDestroy();
  virtual bool IsChanged();
  virtual uint32_t GetChecksum();
  virtual void OnTimer(uintptr_t id);
  // False keeps the page or dialog.
  virtual bool CanApply();
  virtual bool CanCancel();
  virtual bool OnSetActive();
  virtual bool OnKillActive();
  virtual bool OnPaletteMessage(UINT message, WPARAM wParam, LPARAM lParam);
  virtual void OnPrivate(LPARAM param);
  // As "/base/PageSetup.html"; null: no help.
  virtual const char* GetHelpTopic();

  // The texts, templates and measures of the session's language.
  UResourceSet& Resources() const;
  OString Text(int32_t id);
  // The private record of the device mode; null when it isn't there or is another model's. Then the
  // page is read-only, and Update is never called. Valid until the device mode is replaced.
  ModelRecord* Record() const;
  DevMode& Settings() const;

  // Controls of the page by id. An id that isn't there does nothing and reads as empty.
  HWND ControlWindow(int32_t id) const;
  void EnableControl(int32_t id, bool enabled);
  // All from `first` to `last`.
  void EnableAll(bool enabled, int32_t first, int32_t last);
  void ShowControl(int32_t id, bool visible);
  void SetControlText(int32_t id, const OString& text);
  void GetControlText(int32_t id, OString* text) const;
  OString ControlText(int32_t id) const;
  void SetNumber(int32_t id, int32_t value);
  // Blanks, a sign and digits, within kNumberLimit.
  int32_t GetNumber(int32_t id) const;
  void SetCheck(int32_t id, bool checked);
  bool IsChecked(int32_t id) const;
  // One of the radio buttons `first` to `last`.
  void SetRadio(int32_t first, int32_t last, int32_t checked);
  // Of an edit: the most characters that the user may type.
  void LimitText(int32_t id, int32_t characters);
  // Puts a bitmap of the language modules into a picture control.
  void SetBitmap(int32_t id, int32_t resource, bool transparent);
  // The same with a bitmap made by the page, which is the control's from then on.
  void SetPicture(int32_t id, HBITMAP bitmap, bool transparent);
  // Replaces macros such as "{C}" in a control's text, see ui/TextMacros.h.
  void ExpandText(int32_t id);

  // Whoever goes on after one of these, or after a window of SessionWindows, first looks whether
  // Window is null: the host may have ended the sheet meanwhile, and the session with it.

  // The button that the user chose, as the system's IDOK, IDYES, IDNO...
  int32_t ShowMessage(const OString& text, const OString& caption, uint32_t style);
  // Tells, under the page's own title, what could not be done.
  void ShowFailure(const OString& text);
  // The id that ended the dialog; 2 for cancelled, with the device mode as it was before, and when
  // there is no such template.
  int32_t RunDialog(const OString& templateName, DLGPROC startProcedure);
  // Null when there is no such template.
  HWND CreateModeless(const OString& templateName, DLGPROC startProcedure);
  void SetTimer(uintptr_t id, uint32_t milliseconds);
  void KillTimer(uintptr_t id);
  // To every page of the sheet, this one too; nothing in a dialog.
  void SendToSiblings(uint32_t code, LPARAM param);
  // Update and each control's OnUpdate. A call from inside does nothing.
  void Refresh(bool initial);
  // Inside Update and OnInitDialog: what the controls report then isn't the user's doing.
  bool IsRefreshing() const { return Refreshing; }
  // What the message at hand answers.
  void SetResult(LONG_PTR result);

  DriverSession* Session = nullptr;
  HWND Sheet = nullptr;                 // from the page's first activation on; null in a dialog
  PrinterRegistry* Registry = nullptr;  // null without a model
  bool InSheet = false;                 // not a dialog

 private:
  friend class PageDispatch;

  bool HasRecord = false;
  uint32_t SavedChecksum = 0;
  bool Refreshing = false;
  int32_t Depth = 0;  // messages that are being handled
};

// Shows the messages of all pages; the button that the user chose. At first the system's own box.
using MessageFunction = int32_t (*)(HWND owner, const OString& text, const OString& caption,
                                    uint32_t style);
// For tests, in which nobody answers a box. The function that was in force; null is the system's.
MessageFunction SetMessageFunction(MessageFunction function);

// Makes `page`, a new object, the page of `window`. See StartPage.
void AttachPage(HWND window, UPage* page);
// The procedure of every page.
INT_PTR CALLBACK DispatchPage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The start procedure of a page class: makes the object on the window's first message.
template <typename Page>
INT_PTR CALLBACK StartPage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) AttachPage(window, new Page);
  return DispatchPage(window, message, wParam, lParam);
}

}  // namespace ostvt
