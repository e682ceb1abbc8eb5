// Dragging an item of a list view with the mouse.
#pragma once

#include <cstdint>
#include <span>

#include "ui/windows/UListView.h"

namespace ostvt {

class UPage;

// Where the user let go.
struct DropPlace {
  int32_t ControlId = 0;  // one of the targets; 0: somewhere else, or the user gave up
  int32_t Item = -1;      // of the target; -1: behind its last
};

// Drags from the notification that a drag begins until the mouse button goes up; the messages of
// the thread are handled meanwhile. The targets are list views of the page by their ids; one that
// the mouse comes near an edge of scrolls. `start` is in pixels of the source.
DropPlace DragListItem(UPage* page, UListView& source, int32_t item, POINT start,
                       std::span<const int32_t> targets);

}  // namespace ostvt
