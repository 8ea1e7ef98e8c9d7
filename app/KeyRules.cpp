#include "app/KeyRules.h"

#include "res/resource.h"

namespace plotvane {

int ButtonOfKey(int command) {
    switch (command) {
        case ID_KEY_LOAD_LOG:
            return IDC_LOAD_LOG;
        case ID_KEY_PAUSE:
            return IDC_PAUSE;
        case ID_KEY_STOP:
            return IDC_STOP;
        case ID_KEY_SLOWER:
            return IDC_REPLAY_SLOWER;
        case ID_KEY_FASTER:
            return IDC_REPLAY_FASTER;
        case ID_KEY_PREVIOUS:
            return IDC_SCALE_PREVIOUS;
        case ID_KEY_NEXT:
            return IDC_SCALE_NEXT;
        case ID_KEY_SHIFT_DOWN:
            return IDC_SHIFT_DOWN;
        case ID_KEY_SHIFT_UP:
            return IDC_SHIFT_UP;
        default:
            return 0;
    }
}

bool RepeatsWhileHeld(int command) {
    switch (command) {
        case ID_KEY_STEP_ROW:
        case ID_KEY_PREVIOUS:
        case ID_KEY_NEXT:
        case ID_KEY_SHIFT_DOWN:
        case ID_KEY_SHIFT_UP:
            return true;
        default:
            return false;
    }
}

bool IsKeyOfEdit(int command, bool hasSelection) {
    switch (command) {
        case ID_KEY_COPY:
            return hasSelection;
        case ID_KEY_SHIFT_DOWN:
        case ID_KEY_SHIFT_UP:
            return true;  // the caret moves by a word
        default:
            return false;
    }
}

}  // namespace plotvane
