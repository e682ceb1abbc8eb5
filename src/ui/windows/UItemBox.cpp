#include "ui/windows/UItemBox.h"

#include "ui/windows/WindowText.h"

namespace ostvt {
namespace {

LPARAM AsParameter(const OString& text) { return reinterpret_cast<LPARAM>(text.GetWide()); }
WPARAM AsIndex(int32_t index) { return static_cast<WPARAM>(index); }

}  // namespace

int32_t UItemBox::KeepData(LRESULT index, void* data) {
  if (index < 0) return -1;  // memory is short
  SetItemData(static_cast<int32_t>(index), data);
  return static_cast<int32_t>(index);
}

int32_t UItemBox::AddItem(const OString& text, void* data) {
  return Window ? KeepData(Send(Messages.Add, 0, AsParameter(text)), data) : -1;
}

int32_t UItemBox::InsertItem(int32_t index, const OString& text, void* data) {
  return Window ? KeepData(Send(Messages.Insert, AsIndex(index), AsParameter(text)), data) : -1;
}

void UItemBox::RemoveItem(int32_t index) { Send(Messages.Remove, AsIndex(index)); }
void UItemBox::Clear() { Send(Messages.Clear); }
int32_t UItemBox::GetCount() const { return static_cast<int32_t>(Send(Messages.Count)); }
int32_t UItemBox::GetSelected() const {
  return Window ? static_cast<int32_t>(Send(Messages.GetSelected)) : -1;
}
void UItemBox::SelectItem(int32_t index) { Send(Messages.Select, AsIndex(index)); }

OString UItemBox::GetItemText(int32_t index) const {
  return ReadWindowText(Send(Messages.TextLength, AsIndex(index)), [&](wchar_t* units, int) {
    return Send(Messages.Text, AsIndex(index), reinterpret_cast<LPARAM>(units));
  });
}

void* UItemBox::GetItemData(int32_t index) const {
  if (index < 0 || index >= GetCount()) return nullptr;
  return reinterpret_cast<void*>(Send(Messages.GetData, AsIndex(index)));
}

void UItemBox::SetItemData(int32_t index, void* data) {
  Send(Messages.SetData, AsIndex(index), reinterpret_cast<LPARAM>(data));
}

bool UItemBox::SelectData(const void* data) {
  const int32_t count = GetCount();
  int32_t index = 0;
  while (index < count && GetItemData(index) != data) ++index;
  SelectItem(index < count ? index : -1);
  return index < count;
}

int32_t UItemBox::FindItem(const OString& text) const {
  if (!Window) return -1;
  return static_cast<int32_t>(Send(Messages.Find, AsIndex(-1), AsParameter(text)));
}

void UItemBox::SetRedraw(bool redraw) {
  Send(WM_SETREDRAW, redraw);
  if (redraw && Window) InvalidateRect(Window, nullptr, TRUE);
}

}  // namespace ostvt
