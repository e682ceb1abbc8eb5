#include "entry/SheetHook.h"

namespace ostvt {

void InstallSheetHook(DriverSession*, bool) {}
void RemoveSheetHook(DriverSession*) {}

}  // namespace ostvt
