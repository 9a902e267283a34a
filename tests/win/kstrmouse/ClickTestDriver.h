#pragma once
// Drives the click test the way a user would, with the messages a real mouse sends: a click
// for each button, the side buttons, a double click on the target, a drag onto an area and
// wheel notches. Shared by the click test's tests and the soak.
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "MouseDlgHarness.h"
#include "harn5/RunRecord.h"

namespace clicktest {

using mousetest::Dialog;
using Action = std::function<void(const Dialog&)>;

// A control's centre in the dialog's client coordinates, as mouse messages carry it.
LPARAM At(const Dialog& d, int id);
// A point in the middle of the dialog, clear of every control that a step looks at.
LPARAM Plain(const Dialog& d);

void Click(const Dialog& d, UINT down, LPARAM at, WPARAM held);
void LeftClick(const Dialog& d);
void RightClick(const Dialog& d);
void MiddleClick(const Dialog& d);
void SideButton(const Dialog& d, WORD button);
void DoubleClickTarget(const Dialog& d);
// A press whose drag detection sees the pointer leave the drag rectangle at once.
void PressAndDragFrom(const Dialog& d, LPARAM from);
void DragTo(const Dialog& d, int targetId);
// Notches away from the user when positive, toward when negative.
void Wheel(const Dialog& d, int notches);

// The action that completes each step (index 1 to 9) in a run without Skip.
Action StepAction(int index);
// The step indices of a layout, in order.
std::vector<int> StepIndices(bool gaming);

// The options that pick the layout.
std::vector<std::string> Layout(bool gaming, bool middleRequired = false);
harn5::RunRecord RunClickTest(const std::vector<std::string>& options, const mousetest::Script& script);

}  // namespace clicktest
