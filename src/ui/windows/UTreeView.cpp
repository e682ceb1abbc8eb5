#include "ui/windows/UTreeView.h"

namespace ostvt {
namespace {

using platform::AsWide;

constexpr int kTextUnits = 1024;

template <typename Record>
LPARAM AsParameter(Record* record) {
  return reinterpret_cast<LPARAM>(record);
}

wchar_t* AsText(const OString& text) { return const_cast<wchar_t*>(AsWide(text.GetWide())); }

HTREEITEM AsItem(LRESULT result) { return reinterpret_cast<HTREEITEM>(result); }

}  // namespace

HTREEITEM UTreeView::AddItem(HTREEITEM parent, const OString& text, void* data, int32_t image) {
  TVINSERTSTRUCTW request = {};
  request.hParent = parent ? parent : TVI_ROOT;
  request.hInsertAfter = TVI_LAST;
  request.item.mask = TVIF_TEXT | TVIF_PARAM | (image >= 0 ? TVIF_IMAGE | TVIF_SELECTEDIMAGE : 0u);
  request.item.pszText = AsText(text);
  request.item.lParam = AsParameter(data);
  request.item.iImage = request.item.iSelectedImage = image;
  return AsItem(Send(TVM_INSERTITEMW, 0, AsParameter(&request)));
}

void UTreeView::RemoveItem(HTREEITEM item) {
  // Null would mean the root, and with it all items.
  if (item) Send(TVM_DELETEITEM, 0, AsParameter(item));
}
void UTreeView::Clear() { Send(TVM_DELETEITEM, 0, AsParameter(TVI_ROOT)); }

HTREEITEM UTreeView::GetRoot() const { return AsItem(Send(TVM_GETNEXTITEM, TVGN_ROOT)); }
HTREEITEM UTreeView::GetChild(HTREEITEM item) const {
  return AsItem(Send(TVM_GETNEXTITEM, TVGN_CHILD, AsParameter(item)));
}
HTREEITEM UTreeView::GetNext(HTREEITEM item) const {
  return AsItem(Send(TVM_GETNEXTITEM, TVGN_NEXT, AsParameter(item)));
}
HTREEITEM UTreeView::GetParent(HTREEITEM item) const {
  return AsItem(Send(TVM_GETNEXTITEM, TVGN_PARENT, AsParameter(item)));
}
HTREEITEM UTreeView::GetSelected() const { return AsItem(Send(TVM_GETNEXTITEM, TVGN_CARET)); }
void UTreeView::SelectItem(HTREEITEM item) { Send(TVM_SELECTITEM, TVGN_CARET, AsParameter(item)); }
void UTreeView::Expand(HTREEITEM item, bool expanded) {
  Send(TVM_EXPAND, expanded ? TVE_EXPAND : TVE_COLLAPSE, AsParameter(item));
}

OString UTreeView::GetItemText(HTREEITEM item) const {
  wchar_t units[kTextUnits] = {};
  TVITEMW request = {};
  request.mask = TVIF_TEXT;
  request.hItem = item;
  request.pszText = units;
  request.cchTextMax = kTextUnits;
  Send(TVM_GETITEMW, 0, AsParameter(&request));
  // The control may point to a text of its own instead.
  return OString(platform::AsUnits(request.pszText));
}

void UTreeView::SetItemText(HTREEITEM item, const OString& text) {
  TVITEMW request = {};
  request.mask = TVIF_TEXT;
  request.hItem = item;
  request.pszText = AsText(text);
  Send(TVM_SETITEMW, 0, AsParameter(&request));
}

void* UTreeView::GetItemData(HTREEITEM item) const {
  TVITEMW request = {};
  request.mask = TVIF_PARAM;
  request.hItem = item;
  Send(TVM_GETITEMW, 0, AsParameter(&request));
  return reinterpret_cast<void*>(request.lParam);
}

void UTreeView::SetImageList(HIMAGELIST images) {
  Send(TVM_SETIMAGELIST, TVSIL_NORMAL, AsParameter(images));
}
void UTreeView::SetRedraw(bool redraw) { Send(WM_SETREDRAW, redraw); }

}  // namespace ostvt
