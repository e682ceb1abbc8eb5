// What can be sent to a printer as it is.
#pragma once

#include "core/OFile.h"

namespace ostvt {

enum class SendFileProblem {
  kNone,
  kUnreadable,  // not open, no ordinary file, or one that holds other than the size that it states
  kTooLarge,    // more than 2 GiB
};

// Of a file opened for reading; moves its position. An empty file is none.
SendFileProblem FindSendFileProblem(OFile& file);

}  // namespace ostvt
