#include "ui/windows/UComboBox.h"

namespace ostvt {
namespace {

constexpr ItemMessages kComboMessages = {
    CB_ADDSTRING, CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT,
    CB_GETCOUNT,  CB_GETCURSEL,    CB_SETCURSEL,    CB_GETLBTEXTLEN,
    CB_GETLBTEXT, CB_GETITEMDATA,  CB_SETITEMDATA,  CB_FINDSTRINGEXACT,
};

}  // namespace

UComboBox::UComboBox() : UItemBox(kComboMessages) {}

void UComboBox::LimitText(int32_t characters) {
  Send(CB_LIMITTEXT, static_cast<WPARAM>(characters));
}

}  // namespace ostvt
