#include "ui/windows/UWindow.h"

#include "ui/MeasureText.h"
#include "ui/windows/UControl.h"

namespace ostvt {

UWindow::~UWindow() {
  for (int32_t i = 0; i < Controls.Count; ++i) GetControl(i)->Owner = nullptr;
}

void UWindow::GetText(OString* result, int32_t) { result->Clear(); }

int32_t UWindow::GetMeasurement() { return kMeasureMillimetres; }

bool UWindow::OnDrawItem(const DRAWITEMSTRUCT*) { return false; }

void UWindow::AddControl(UControl* control) {
  Controls.Add(control);
  control->OnAdded();
}

void UWindow::RemoveControl(UControl* control) {
  const int32_t index = Controls.Find(control);
  if (index >= 0) Controls.RemoveAt(index);
}

UControl* UWindow::FindControl(int32_t id) const {
  for (int32_t i = 0; i < Controls.Count; ++i) {
    if (GetControl(i)->GetId() == id) return GetControl(i);
  }
  return nullptr;
}

}  // namespace ostvt
