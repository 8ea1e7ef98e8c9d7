#pragma once

#include "framework/SystemLibrary.h"

// Windows' library of dialogs for files and colours. To load it takes about as long as everything else that
// the program does before its first picture, and it brings other libraries along. So it is loaded for the
// first dialog. It is never unloaded, because threads of the shell may outlive a dialog.
const SystemLibrary& CommonDialogs();
