#include "ui/windows/UListView.h"

namespace ostvt {
namespace {

using platform::AsWide;

// Texts of list views are shown up to 259 units; edited ones may be longer.
constexpr int kTextUnits = 1024;

WPARAM AsIndex(int32_t index) { return static_cast<WPARAM>(index); }

template <typename Record>
LPARAM AsParameter(Record* record) {
  return reinterpret_cast<LPARAM>(record);
}

wchar_t* AsText(const OString& text) { return const_cast<wchar_t*>(AsWide(text.GetWide())); }

}  // namespace

void UListView::AddColumn(int32_t column, const OString& title, int32_t width, bool rightAligned) {
  LVCOLUMNW record = {};
  record.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
  record.fmt = rightAligned ? LVCFMT_RIGHT : LVCFMT_LEFT;
  record.cx = width;
  record.pszText = AsText(title);
  record.iSubItem = column;
  Send(LVM_INSERTCOLUMNW, AsIndex(column), AsParameter(&record));
}

void UListView::RemoveColumns() {
  while (Send(LVM_DELETECOLUMN, 0)) {
  }
}

void UListView::SetColumnWidth(int32_t column, int32_t width) {
  Send(LVM_SETCOLUMNWIDTH, AsIndex(column), width);
}

int32_t UListView::GetColumnWidth(int32_t column) const {
  return static_cast<int32_t>(Send(LVM_GETCOLUMNWIDTH, AsIndex(column)));
}

int32_t UListView::AddItem(const OString& text, void* data, int32_t image) {
  return InsertItem(GetCount(), text, data, image);
}

int32_t UListView::InsertItem(int32_t index, const OString& text, void* data, int32_t image) {
  if (!Window) return -1;
  LVITEMW item = {};
  item.mask = LVIF_TEXT | LVIF_PARAM | (image >= 0 ? LVIF_IMAGE : 0u);
  item.iItem = index;
  item.pszText = AsText(text);
  item.lParam = AsParameter(data);
  item.iImage = image;
  return static_cast<int32_t>(Send(LVM_INSERTITEMW, 0, AsParameter(&item)));
}

void UListView::RemoveItem(int32_t index) { Send(LVM_DELETEITEM, AsIndex(index)); }
void UListView::Clear() { Send(LVM_DELETEALLITEMS); }
int32_t UListView::GetCount() const { return static_cast<int32_t>(Send(LVM_GETITEMCOUNT)); }
int32_t UListView::GetSelectedCount() const {
  return static_cast<int32_t>(Send(LVM_GETSELECTEDCOUNT));
}

int32_t UListView::GetNextSelected(int32_t after) const {
  return Window ? static_cast<int32_t>(Send(LVM_GETNEXTITEM, AsIndex(after), LVNI_SELECTED)) : -1;
}

bool UListView::IsItemSelected(int32_t index) const {
  return (Send(LVM_GETITEMSTATE, AsIndex(index), LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

void UListView::SelectItem(int32_t index, bool selected) {
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED;
  item.state = selected ? LVIS_SELECTED : 0;
  Send(LVM_SETITEMSTATE, AsIndex(index), AsParameter(&item));
}

void UListView::ShowItem(int32_t index) {
  SelectItem(-1, false);
  LVITEMW item = {};
  item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  Send(LVM_SETITEMSTATE, AsIndex(index), AsParameter(&item));
  Send(LVM_ENSUREVISIBLE, AsIndex(index), FALSE);
}

OString UListView::GetItemText(int32_t index, int32_t column) const {
  wchar_t units[kTextUnits] = {};
  LVITEMW item = {};
  item.iSubItem = column;
  item.pszText = units;
  item.cchTextMax = kTextUnits;
  Send(LVM_GETITEMTEXTW, AsIndex(index), AsParameter(&item));
  // The control may point to a text of its own instead.
  return OString(platform::AsUnits(item.pszText));
}

void UListView::SetItemText(int32_t index, int32_t column, const OString& text) {
  LVITEMW item = {};
  item.iSubItem = column;
  item.pszText = AsText(text);
  Send(LVM_SETITEMTEXTW, AsIndex(index), AsParameter(&item));
}

void* UListView::GetItemData(int32_t index) const {
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  item.iItem = index;
  return Send(LVM_GETITEMW, 0, AsParameter(&item)) ? reinterpret_cast<void*>(item.lParam) : nullptr;
}

void UListView::SetItemData(int32_t index, void* data) {
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  item.iItem = index;
  item.lParam = AsParameter(data);
  Send(LVM_SETITEMW, 0, AsParameter(&item));
}

int32_t UListView::FindData(const void* data) const {
  if (!Window) return -1;
  LVFINDINFOW request = {};
  request.flags = LVFI_PARAM;
  request.lParam = AsParameter(data);
  return static_cast<int32_t>(Send(LVM_FINDITEMW, AsIndex(-1), AsParameter(&request)));
}

bool UListView::IsItemChecked(int32_t index) const {
  // The pictures of states are numbered from 1; the second is the checked one.
  return (Send(LVM_GETITEMSTATE, AsIndex(index), LVIS_STATEIMAGEMASK) & LVIS_STATEIMAGEMASK) ==
         INDEXTOSTATEIMAGEMASK(2);
}

void UListView::CheckItem(int32_t index, bool checked) {
  LVITEMW item = {};
  item.stateMask = LVIS_STATEIMAGEMASK;
  item.state = INDEXTOSTATEIMAGEMASK(checked ? 2u : 1u);
  Send(LVM_SETITEMSTATE, AsIndex(index), AsParameter(&item));
}

void UListView::SetExtendedStyle(uint32_t style) { Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style); }
void UListView::SetImageList(HIMAGELIST images) {
  Send(LVM_SETIMAGELIST, LVSIL_SMALL, AsParameter(images));
}
void UListView::Sort(CompareFunction compare, LPARAM context) {
  Send(LVM_SORTITEMS, static_cast<WPARAM>(context), reinterpret_cast<LPARAM>(compare));
}
void UListView::SetRedraw(bool redraw) { Send(WM_SETREDRAW, redraw); }

}  // namespace ostvt
