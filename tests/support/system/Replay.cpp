#include "tests/support/system/Replay.h"

#include <dlgs.h>

#include "tests/support/DegreeSign.h"

namespace plotvane::test {

void Replay::Start() {
    session.Start();
    main = session.Main();
    ASSERT_TRUE(Becomes([this] { return main.IsShown(IDC_LOAD_LOG); }, true));
}

std::filesystem::path Replay::WriteLog(const std::filesystem::path& name, std::string_view bytes) {
    const auto folder = session.Folder() / "LOGS";
    std::filesystem::create_directory(folder);
    WriteBytes(folder / name, bytes);
    return folder / name;
}

void Replay::Press(int button) {
    ASSERT_TRUE(main.IsShown(button)) << button;
    ASSERT_TRUE(Becomes([&] { return main.IsEnabled(button); }, true)) << button;
    main.PostClick(button);
}

RemoteWindow Replay::FileDialog() const {
    RemoteWindow dialog;
    EXPECT_TRUE(Becomes(
        [&] {
            for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
                if (window.Text() == L"Choose a log file") dialog = window;
            }
            return dialog.Exists();
        },
        true))
        << "the dialog for choosing a log did not come";
    return dialog;
}

void Replay::Type(const RemoteWindow& fileDialog, const std::filesystem::path& path) {
    // Some systems have the one control, some the other.
    const int name = fileDialog.Control(cmb13).Exists() ? cmb13 : edt1;
    fileDialog.Control(name).Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    EXPECT_EQ(fileDialog.Text(name), path.wstring());
}

void Replay::Choose(const std::filesystem::path& path) {
    const RemoteWindow dialog = FileDialog();
    Type(dialog, path);
    dialog.PostClick(IDOK);
    EXPECT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
}

void Replay::Load(const std::filesystem::path& path) {
    Press(IDC_LOAD_LOG);
    Choose(path);
}

std::string ClassicLog(const std::vector<LogRowText>& rows) {
    std::string text =
        "Friday,20,November,2026,10:15:30\r\n"
        "038 906 019 FT,Engine control\r\n"
        "\r\n"
        ",Row A,'001,,,,Row B,none,,,,Row C,none\r\n"
        ",,Speed,Coolant,Speed,Flow,,,,,,,,,,\r\n"
        ",,actual,temp.,actual,,,,,,,,,,,\r\n"
        "mark,time, /min," DEGREES_C ", km/h, l/h,time,,,,,time,,,,\r\n";
    for (const LogRowText& row : rows) text += "0," + row.time + "," + row.values + ",,,,,,,,,,\r\n";
    return text;
}

std::string LogThatLingersAt(const char* values) {
    return ClassicLog({{"0.01", kIdle},
                       {"0.02", kIdle},
                       {"0.03", kIdle},
                       {"0.04", kIdle},
                       {"4.94", values},
                       {"9.84", kIdle}});
}

}  // namespace plotvane::test
