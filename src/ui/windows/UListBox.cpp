#include "ui/windows/UListBox.h"

namespace ostvt {
namespace {

constexpr ItemMessages kListMessages = {
    LB_ADDSTRING, LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT,
    LB_GETCOUNT,  LB_GETCURSEL,    LB_SETCURSEL,    LB_GETTEXTLEN,
    LB_GETTEXT,   LB_GETITEMDATA,  LB_SETITEMDATA,  LB_FINDSTRINGEXACT,
};

}  // namespace

UListBox::UListBox() : UItemBox(kListMessages) {}

void UListBox::SelectItem(int32_t index, bool selected) { Send(LB_SETSEL, selected, index); }

bool UListBox::IsItemSelected(int32_t index) const {
  return Send(LB_GETSEL, static_cast<WPARAM>(index)) > 0;
}

int32_t UListBox::GetSelectedCount() const {
  const LRESULT count = Send(LB_GETSELCOUNT);
  return count > 0 ? static_cast<int32_t>(count) : 0;
}

}  // namespace ostvt
