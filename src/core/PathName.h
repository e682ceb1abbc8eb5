// The last part of a path of either platform.
#pragma once

#include "core/OString.h"

namespace ostvt {

// What stands behind the last "/" or "\\", the whole path when there is none. (FileNamePart()
// knows one kind of separator.)
inline OString NameOfPath(const OString& path) {
  return path.Mid(path.ReverseFindOneOf("/\\") + 1);
}

}  // namespace ostvt
