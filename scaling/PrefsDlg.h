#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "controls/ColorBox.h"
#include "framework/AccessibleNames.h"
#include "framework/Dialog.h"
#include "model/RunState.h"
#include "scaling/DefaultRowBrowser.h"
#include "scaling/PrefsColourEdit.h"
#include "scaling/PrefsNumberEdit.h"

namespace plotvane {

// Edits the preferences and the default scaling table, both in place and at once. "Save and Exit" writes
// their files. Any other exit reads the preferences again from their file, while edits of the table stay
// until it is next loaded. In either case the caller reads the preferences again and applies them.
class CPrefsDlg : public CDialog {
public:
    // All references must outlive the dialog. `state` has the main window's size, which is saved with the
    // rest.
    CPrefsDlg(HWND owner, Prefs& prefs, std::filesystem::path prefsFile, DefaultScaling& defaults,
              const RunState& state);

    std::string AccessibleNameOf(int control) const override;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnCancel() override;

private:
    void OnClose();
    LRESULT OnSliderDrawn(UINT id, const NMHDR& notification);
    void OnPresetChosen(UINT id);
    void OnTraceChosen();
    void OnSwitchClicked();
    void OnNumberLeft(UINT id);
    void OnNumberChanged(UINT id);
    void OnNextRow();
    void OnPreviousRow();
    void OnNewRow();
    void OnRowEditLeft(UINT id);

    void FillLists();
    void ReadPrefs();
    void CreateSwatches();
    void ShowColours();
    void ShowSliders(ColourRow row);
    void ShowRow();
    bool TakeTypedText();
    bool IsJudgedAfterReset(PrefsNumber number) const;

    // Shows the box, then gives that edit the focus, with its text (which is set in between) selected.
    // Meanwhile no edit that loses the focus is checked: two bad ones would pass the focus to each other for
    // ever.
    void Reject(UINT textId, UINT captionId, UINT edit, const std::string& shownText);

    DECLARE_MESSAGE_MAP()

    Prefs& m_prefs;
    const std::filesystem::path m_prefsFile;
    DefaultScaling& m_defaults;
    const RunState& m_state;

    PrefsColourEdit m_colours;
    DefaultRowBrowser m_rows;
    AccessibleNames m_names;
    std::string m_rowLabel;
    bool m_rejecting = false;         // a box is open, or the focus is on its way back
    bool m_closing = false;           // edits that lose the focus because the dialog ends are not read
    std::array<bool, 4> m_isReset{};  // by number: rejected, and its edit not changed since it was reset

    std::array<CColorBox, 3> m_swatches;

    // What the controls show, in the order of their ids.
    std::array<std::string, 9> m_colourParts;
    std::array<std::string, 4> m_numbers;
    std::string m_rowUnit;
    std::string m_rowMin;
    std::string m_rowMax;
    int m_autorun = 0;
    int m_showUnits = 0;
    int m_showZeros = 0;
    int m_saveWindowSize = 0;
};

}  // namespace plotvane
