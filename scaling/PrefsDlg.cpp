#include "scaling/PrefsDlg.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "base/Numbers.h"
#include "framework/Text.h"
#include "model/Meanwhile.h"
#include "res/resource.h"
#include "scaling/PrefsControls.h"
#include "scaling/PrefsFile.h"
#include "scaling/PrefsNames.h"

namespace plotvane {
namespace {

constexpr ColourRow kColourRows[] = {ColourRow::Background, ColourRow::Grid, ColourRow::Trace};
constexpr ColourPart kColourParts[] = {ColourPart::Red, ColourPart::Green, ColourPart::Blue};

// By row.
constexpr std::array<int, 3> kSwatches = {IDC_PREFS_BACK_SWATCH, IDC_PREFS_GRID_SWATCH,
                                          IDC_PREFS_TRACE_SWATCH};

std::size_t Index(ColourRow row) {
    return static_cast<std::size_t>(row);
}

std::size_t Index(ColourRow row, ColourPart part) {
    return Index(row) * std::size(kColourParts) + static_cast<std::size_t>(part);
}

std::string Decimal(int value) {
    std::string text;
    AppendDecimal(text, value);
    return text;
}

void AddLine(const CWnd& dialog, int list, const std::string& text) {
    dialog.SendDlgItemMessage(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

int SelectionOf(const CWnd& dialog, UINT list) {
    return static_cast<int>(dialog.SendDlgItemMessage(static_cast<int>(list), CB_GETCURSEL));
}

void ClearSelection(const CWnd& dialog, int list) {
    dialog.SendDlgItemMessage(list, CB_SETCURSEL, static_cast<WPARAM>(-1));
}

}  // namespace

BEGIN_MESSAGE_MAP(CPrefsDlg, CDialog)
    ON_WM_CLOSE()
    // Colours. Every redraw of a slider counts, even while the user drags it.
    ON_NOTIFY_RANGE(NM_CUSTOMDRAW, IDC_PREFS_BACK_RED, IDC_PREFS_TRACE_BLUE, OnSliderDrawn)
    ON_CONTROL_RANGE(CBN_SELENDOK, IDC_PREFS_BACK_PRESET, IDC_PREFS_TRACE_PRESET, OnPresetChosen)
    ON_CBN_SELENDOK(IDC_PREFS_TRACE_LIST, OnTraceChosen)
    // Switches and numbers.
    ON_BN_CLICKED(IDC_PREFS_AUTORUN, OnSwitchClicked)
    ON_BN_CLICKED(IDC_PREFS_SHOW_UNITS, OnSwitchClicked)
    ON_BN_CLICKED(IDC_PREFS_SHOW_ZEROS, OnSwitchClicked)
    ON_BN_CLICKED(IDC_PREFS_SAVE_SIZE, OnSwitchClicked)
    ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_PREFS_THICKNESS, IDC_PREFS_FUEL_DEPTH, OnNumberLeft)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_PREFS_THICKNESS, IDC_PREFS_FUEL_DEPTH, OnNumberChanged)
    // The default scaling table.
    ON_BN_CLICKED(IDC_PREFS_ROW_NEXT, OnNextRow)
    ON_BN_CLICKED(IDC_PREFS_ROW_PREVIOUS, OnPreviousRow)
    ON_BN_CLICKED(IDC_PREFS_NEW_ROW, OnNewRow)
    ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_PREFS_ROW_UNIT, IDC_PREFS_ROW_UNIT, OnRowEditLeft)
    ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_PREFS_ROW_MIN, IDC_PREFS_ROW_MAX, OnRowEditLeft)
END_MESSAGE_MAP()

CPrefsDlg::CPrefsDlg(HWND owner, Prefs& prefs, std::filesystem::path prefsFile, DefaultScaling& defaults,
                     const RunState& state)
    : CDialog(IDD_PREFS, owner),
      m_prefs(prefs),
      m_prefsFile(std::move(prefsFile)),
      m_defaults(defaults),
      m_state(state),
      m_colours(prefs),
      m_rows(defaults) {}

std::string CPrefsDlg::AccessibleNameOf(int control) const {
    const auto textOf = [this](int id) { return GetDlgItemText(id); };
    return NameOfPrefsControl(control, textOf, LoadText);
}

BOOL CPrefsDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_closing = false;
    m_isReset.fill(false);
    m_rows.Load();
    FillLists();
    for (const int slider : kColourSliders)
        SendDlgItemMessage(slider, TBM_SETRANGE, FALSE, MAKELPARAM(0, 255));
    ReadPrefs();
    for (const ColourRow row : kColourRows) ShowSliders(row);
    CreateSwatches();
    ShowColours();
    m_names.Give(*this, NamelessPrefsControls());
    m_rowLabel = LoadText(IDS_FIELD_NUMBER);
    SendDlgItemMessage(IDC_PREFS_ROW_UNIT, EM_LIMITTEXT, kMaxUnitLength);
    ShowRow();
    return TRUE;
}

void CPrefsDlg::FillLists() {
    const std::string line = LoadText(IDS_LINE);
    for (int trace = 1; trace <= kSlotCount; ++trace) {
        AddLine(*this, IDC_PREFS_TRACE_LIST, line + " " + Decimal(trace));
    }
    SendDlgItemMessage(IDC_PREFS_TRACE_LIST, CB_SETCURSEL, 0);
    for (std::size_t preset = 0; preset < kPresetColours.size(); ++preset) {
        const std::string name = LoadText(IDS_PRESET_COLOUR_FIRST + static_cast<UINT>(preset));
        for (const int list : kPresetLists) AddLine(*this, list, name);
    }
}

void CPrefsDlg::ReadPrefs() {
    LoadPrefs(m_prefsFile, m_prefs);
    m_colours.Begin();
    m_autorun = m_prefs.autorun;
    m_showUnits = m_prefs.showUnits;
    m_showZeros = m_prefs.showZeros;
    m_saveWindowSize = m_prefs.saveWindowSize;
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        m_numbers[i] = Decimal(NumberOf(m_prefs, static_cast<PrefsNumber>(i)));
    }
}

// Above their placeholders, which would otherwise paint over them.
void CPrefsDlg::CreateSwatches() {
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        CRect place;
        ::GetWindowRect(GetDlgItem(kSwatches[i]), &place);
        m_swatches[i].Create(WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, ScreenToClient(place), m_hWnd,
                             IDC_PREFS_SWATCH_WINDOW_FIRST + static_cast<UINT>(i));
        ::SetWindowPos(m_swatches[i].m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

void CPrefsDlg::DoDataExchange(CDataExchange* exchange) {
    const auto texts = [exchange](int firstId, auto& members) {
        for (std::string& text : members) DDX_Text(exchange, firstId++, text);
    };
    texts(IDC_PREFS_BACK_RED_TEXT, m_colourParts);
    texts(IDC_PREFS_THICKNESS, m_numbers);
    DDX_Text(exchange, IDC_PREFS_ROW_UNIT, m_rowUnit);
    DDX_Text(exchange, IDC_PREFS_ROW_MIN, m_rowMin);
    DDX_Text(exchange, IDC_PREFS_ROW_MAX, m_rowMax);
    DDX_Check(exchange, IDC_PREFS_AUTORUN, m_autorun);
    DDX_Check(exchange, IDC_PREFS_SHOW_UNITS, m_showUnits);
    DDX_Check(exchange, IDC_PREFS_SHOW_ZEROS, m_showZeros);
    DDX_Check(exchange, IDC_PREFS_SAVE_SIZE, m_saveWindowSize);
}

// A slider is redrawn for many reasons, for example because a preset or another trace has just moved it. Only
// a position that differs from the stored one comes from the user, and only then the preset's name is wrong.
LRESULT CPrefsDlg::OnSliderDrawn(UINT id, const NMHDR&) {
    const auto found = std::find(kColourSliders.begin(), kColourSliders.end(), static_cast<int>(id));
    const auto index = static_cast<std::size_t>(found - kColourSliders.begin());
    const ColourRow row = kColourRows[index / std::size(kColourParts)];
    const ColourPart part = kColourParts[index % std::size(kColourParts)];
    const auto position = static_cast<int>(SendDlgItemMessage(static_cast<int>(id), TBM_GETPOS));
    if (m_colours.SetPart(row, part, position)) {
        ClearSelection(*this, kPresetLists[Index(row)]);
        ShowColours();
    }
    return CDRF_DODEFAULT;
}

void CPrefsDlg::OnPresetChosen(UINT id) {
    const ColourRow row = kColourRows[id - IDC_PREFS_BACK_PRESET];
    m_colours.UsePreset(row, SelectionOf(*this, id));
    ShowSliders(row);
    ShowColours();
}

void CPrefsDlg::OnTraceChosen() {
    const bool isOtherColour = m_colours.SelectTrace(SelectionOf(*this, IDC_PREFS_TRACE_LIST));
    if (isOtherColour) ClearSelection(*this, IDC_PREFS_TRACE_PRESET);
    ShowSliders(ColourRow::Trace);
    ShowColours();
}

// Not part of ShowColours: a new position draws the slider again, which may call ShowColours.
void CPrefsDlg::ShowSliders(ColourRow row) {
    for (const ColourPart part : kColourParts) {
        SendDlgItemMessage(kColourSliders[Index(row, part)], TBM_SETPOS, TRUE, m_colours.PartOf(row, part));
    }
}

void CPrefsDlg::ShowColours() {
    for (const ColourRow row : kColourRows) {
        CColorBox& swatch = m_swatches[Index(row)];
        swatch.SetFillColor(m_colours.ColourOf(row));
        swatch.SetFrameColor(m_colours.ColourOf(row));
        for (const ColourPart part : kColourParts) {
            m_colourParts[Index(row, part)] = Decimal(m_colours.PartOf(row, part));
        }
    }
    UpdateData(false);
}

void CPrefsDlg::OnSwitchClicked() {
    UpdateData();
    m_prefs.autorun = m_autorun != 0;
    m_prefs.showUnits = m_showUnits != 0;
    m_prefs.showZeros = m_showZeros != 0;
    m_prefs.saveWindowSize = m_saveWindowSize != 0;
}

void CPrefsDlg::OnNumberLeft(UINT id) {
    if (m_rejecting || m_closing) return;
    const UINT index = id - IDC_PREFS_THICKNESS;
    const auto number = static_cast<PrefsNumber>(index);
    if (m_isReset[index] && !IsJudgedAfterReset(number)) return;
    UpdateData();
    if (const auto rejection = EnterNumber(m_prefs, number, m_numbers[index])) {
        Reject(rejection->messageId, IDS_INCORRECT_VALUE, id, rejection->shownText);
        m_isReset[index] = true;
    }
}

// A rejected thickness stays in the record until the user changes the edit, however often the focus leaves
// it. The other edits may show a bad number from the file; it is rejected whenever the focus moves to another
// control. After a box has closed, the system may take the focus from the whole dialog once more and give it
// back; that does not count.
bool CPrefsDlg::IsJudgedAfterReset(PrefsNumber number) const {
    return number != PrefsNumber::Thickness && ::IsChild(m_hWnd, ::GetFocus());
}

void CPrefsDlg::OnNumberChanged(UINT id) {
    m_isReset[id - IDC_PREFS_THICKNESS] = false;
}

void CPrefsDlg::Reject(UINT textId, UINT captionId, UINT edit, const std::string& shownText) {
    const auto id = static_cast<int>(edit);
    const Meanwhile rejecting{m_rejecting};
    MessageBoxText(m_hWnd, textId, captionId);
    if (m_closing) return;
    SetDlgItemText(id, shownText);
    ::SetFocus(GetDlgItem(id));
    SendDlgItemMessage(id, EM_SETSEL, 0, -1);
    UpdateData();
}

void CPrefsDlg::OnNextRow() {
    m_rows.GoToNext();
    ShowRow();
}

void CPrefsDlg::OnPreviousRow() {
    m_rows.GoToPrevious();
    ShowRow();
}

// One message at a time, however often the button is pressed while it is open.
void CPrefsDlg::OnNewRow() {
    if (m_rejecting) return;
    const DefaultRowBrowser::NewRow result = m_rows.AppendRow();
    ShowRow();
    if (result == DefaultRowBrowser::NewRow::LastIncomplete) {
        Reject(IDS_COMPLETE_FIELD_FIRST, IDS_ERROR, IDC_PREFS_ROW_UNIT, m_rowUnit);
    } else if (result == DefaultRowBrowser::NewRow::LastUpsideDown) {
        Reject(IDS_MAX_ABOVE_MIN, IDS_DOH, IDC_PREFS_ROW_UNIT, m_rowUnit);
    }
}

void CPrefsDlg::OnRowEditLeft(UINT id) {
    if (m_rejecting || m_closing || !m_rows.HasRow()) return;
    UpdateData();
    // An accepted text stays as it was typed. A rejected one is replaced by the row's.
    switch (id) {
        case IDC_PREFS_ROW_UNIT:
            if (!m_rows.EnterUnit(m_rowUnit)) m_rowUnit = m_rows.Row().unit;
            break;
        case IDC_PREFS_ROW_MIN:
            m_rows.EnterMin(m_rowMin);
            break;
        default:
            if (!m_rows.EnterMax(m_rowMax)) m_rowMax = Decimal(m_rows.Row().max);
            break;
    }
    UpdateData(false);
}

void CPrefsDlg::ShowRow() {
    UpdateData();  // keeps what is half typed elsewhere
    const FieldScaling& row = m_rows.Row();
    m_rowUnit = row.unit;
    m_rowMin = m_rows.HasRow() ? Decimal(row.min) : "";
    m_rowMax = m_rows.HasRow() ? Decimal(row.max) : "";
    UpdateData(false);
    SetDlgItemText(IDC_PREFS_ROW_LABEL, m_rows.Position(m_rowLabel));
    for (const int edit : {IDC_PREFS_ROW_UNIT, IDC_PREFS_ROW_MIN, IDC_PREFS_ROW_MAX}) {
        EnableDlgItem(edit, m_rows.HasRow());
    }
}

// Enter saves without moving the focus from the edit that is being typed in, so read that edit as if the
// button had been clicked. False if its text is rejected.
bool CPrefsDlg::TakeTypedText() {
    const HWND edit = ::GetFocus();
    if (::GetParent(edit) != m_hWnd || !::SendMessageW(edit, EM_GETMODIFY, 0, 0)) return true;
    const HWND button = GetDlgItem(IDOK);
    ::SetFocus(button);
    return ::GetFocus() == button;
}

// The dialog closes even if a file cannot be written, and the user gets no message.
void CPrefsDlg::OnOK() {
    if (m_rejecting || !TakeTypedText()) return;
    m_closing = true;
    m_defaults.SaveDefaultScaling();
    SavePrefs(m_prefsFile, m_prefs, m_state.width, m_state.height);
    EndDialog(IDOK);
}

void CPrefsDlg::OnCancel() {
    m_closing = true;
    LoadPrefs(m_prefsFile, m_prefs);
    EndDialog(IDCANCEL);
    // The program may end while a box is open; the box would keep it alive until the user answers.
    if (m_rejecting) ::PostMessageW(::GetLastActivePopup(m_hWnd), WM_CLOSE, 0, 0);
}

// Reads the preferences at once. The default processing would read them later, but if the whole program
// closes, it saves them next.
void CPrefsDlg::OnClose() {
    OnCancel();
}

}  // namespace plotvane
