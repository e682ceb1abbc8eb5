// What the processor, and the system with it, can do beyond every x64 one. Any thread.
#pragma once

namespace ostvt {

bool HasSsse3();
bool HasAvx2();

}  // namespace ostvt
