#include "tests/support/system/Session.h"

#include <utility>

#include "tests/support/system/MainDialog.h"

namespace plotvane::test {

namespace {

// Any free number will do, as long as the program can only know it from the file.
constexpr int kDescriptor = 5;

constexpr int kMessageText = 0xFFFF;

}  // namespace

Session::Session(const std::filesystem::path& below)
    : m_workingFolder(below.empty() ? m_folder.Path() : m_folder.Path() / below) {
    std::filesystem::create_directories(m_workingFolder);
}

void Session::Start() {
    Launch();
}

void Session::StartWithHost() {
    WriteBytes(ExchangeFile(), std::to_string(kDescriptor) + "\n");
    StartWithHostButNoExchangeFile();
}

void Session::StartWithHost(const std::function<std::vector<BYTE>(HANDLE, int)>& makeBlock) {
    WriteBytes(ExchangeFile(), std::to_string(kDescriptor) + "\n");
    m_host = std::make_unique<PipeHost>();
    Launch(makeBlock(m_host->ReadEnd(), kDescriptor));
}

void Session::StartWithHostAt(HANDLE inherited, int descriptor) {
    WriteBytes(ExchangeFile(), std::to_string(descriptor) + "\n");
    m_host = std::make_unique<PipeHost>();
    Launch(DescriptorBlock(inherited, descriptor));
}

void Session::StartWithHostButNoExchangeFile() {
    m_host = std::make_unique<PipeHost>();
    Launch(DescriptorBlock(m_host->ReadEnd(), kDescriptor));
}

void Session::StartThroughStandIn(const std::wstring& options) {
    m_throughHost = true;
    const std::wstring host = (ProgramFolder() / "diagnel-sim.exe").wstring();
    m_process = std::make_unique<ChildProcess>(
        L'"' + host + L"\" --folder \"" + Folder().wstring() + L"\" " + options, Folder());
}

void Session::StartThroughDocumentedHost() {
    m_throughHost = true;
    std::filesystem::copy_file(ProgramFolder() / "plotvane.exe", Folder() / "plotvane.exe");
    m_process = std::make_unique<ChildProcess>(
        L'"' + (ProgramFolder() / "documented-host.exe").wstring() + L'"', Folder());
}

void Session::Launch(std::vector<BYTE> descriptors) {
    const std::wstring program = (m_programFolder / "plotvane.exe").wstring();
    m_process = std::make_unique<ChildProcess>(L'"' + program + L'"', Folder(), std::move(descriptors));
}

RemoteWindow Session::Main() const {
    if (!m_main.Exists()) {
        EXPECT_TRUE(Becomes(
            [this] {
                m_main = FindMainDialog(m_throughHost ? 0 : m_process->Id());
                return m_main.Exists();
            },
            true))
            << "the main window did not come; exit code of the process: " << m_process->ExitCode();
    }
    return m_main;
}

RemoteWindow Session::DialogWith(int id) const {
    RemoteWindow dialog;
    EXPECT_TRUE(Becomes(
        [&] {
            for (const RemoteWindow& window : WindowsOf(m_process->Id())) {
                if (window.Control(id).Exists() && !window.Control(IDC_CHART_FRAME).Exists()) dialog = window;
            }
            return dialog.Exists();
        },
        true))
        << "no dialog with the control " << id << " came";
    return dialog;
}

void Session::ConfirmMessage(const std::wstring& text, const std::wstring& caption) const {
    const RemoteWindow message = DialogWith(kMessageText);
    EXPECT_EQ(message.Text(kMessageText), text);
    EXPECT_EQ(message.Text(), caption);
    EXPECT_FALSE(::IsWindowEnabled(Main().Get())) << "the message belongs to the main window";
    message.PostClick(IDOK);
    EXPECT_TRUE(Becomes([&] { return message.Exists(); }, false));
}

::testing::AssertionResult Session::Shows(int slot, const std::wstring& text) const {
    return Becomes([&] { return ValueText(slot); }, text);
}

::testing::AssertionResult Session::Closes() const {
    const RemoteWindow main = Main();
    const Handle program(::OpenProcess(SYNCHRONIZE, FALSE, main.ProcessId()));
    main.Close();
    if (::WaitForSingleObject(program.Get(), static_cast<DWORD>(kDeadline.count())) == WAIT_OBJECT_0) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "the program still runs " << kDeadline.count() << " ms after its window was closed";
}

}  // namespace plotvane::test
