#pragma once

namespace plotvane {

// What the commands of the key table (res/keys.rc) ask of the window. Commands are ID_KEY_...

// The id of the button that the key presses; 0 if it presses none.
int ButtonOfKey(int command);

// Whether a key that is held down goes on and on. A held Pause would hold and resume ten times a second.
bool RepeatsWhileHeld(int command);

// Whether an edit with the focus keeps the key for itself.
bool IsKeyOfEdit(int command, bool hasSelection);

}  // namespace plotvane
