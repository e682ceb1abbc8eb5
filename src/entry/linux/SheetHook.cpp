#include "entry/SheetHook.h"

namespace ostvt {

void InstallSheetHook(DriverSession*) {}
void RemoveSheetHook(DriverSession*) {}

}  // namespace ostvt
