#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "framework/Gdi.h"
#include "history/CsvSave.h"
#include "history/LookBack.h"

namespace plotvane {

// What the window that looks back saves and copies, and what it says about that. The samples go to the disk
// while the window goes on: the owner calls GoOn again and again while IsGoing.
class HistorySaves {
public:
    // Both ask where, and dispatch messages meanwhile; `owner` may be gone afterwards. Without an answer
    // nothing happens. A picture is saved as it is at the call.
    void SavePicture(HWND owner, const Picture& picture, const Recording& recording);
    // The samples between the cursors or, without two of them, those in view.
    void SaveSamples(HWND owner, const LookBack& state);

    // To the clipboard. Only a failure leaves a note.
    void CopyPicture(HWND owner, const Picture& picture);
    void CopyTable(HWND owner, const LookBack& state);

    bool IsGoing() const { return m_samples.has_value(); }

    // Saves some more. Takes a few milliseconds.
    void GoOn();

    // Nothing of it stays on the disk.
    void Cancel();

    // How far it is, or how it ended; empty after Forget. Windows-1252.
    std::string Note() const;
    void Forget() { m_note.clear(); }

private:
    void EndWith(const std::filesystem::path& path, bool isSaved);
    void Complain(std::string note);

    std::optional<CsvSave> m_samples;
    std::string m_note;
};

}  // namespace plotvane
