// F1: the manual beside the program, at the page of the window in front, in the browser that the user has
// chosen. Here the "browser" is a command that notes the address.
#include <array>
#include <optional>

#include "tests/support/system/KeyTest.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/PressUntil.h"

namespace plotvane::test {
namespace {

constexpr const wchar_t* kExtension = L".html";
constexpr const wchar_t* kKind = L"PlotvaneTestPage";

void SetDefault(const std::wstring& key, const std::wstring& value) {
    ::RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                      static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

std::optional<std::wstring> DefaultOf(const wchar_t* key) {
    std::array<wchar_t, 256> value{};
    DWORD size = sizeof value;
    const LSTATUS status =
        ::RegGetValueW(HKEY_CLASSES_ROOT, key, nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &size);
    if (status != ERROR_SUCCESS) return std::nullopt;
    return value.data();
}

class ManualKey : public KeyTest {
protected:
    ManualKey() {
        std::filesystem::create_directories(m_program);
        std::filesystem::copy_file(ProgramFolder() / "plotvane.exe", m_program / "plotvane.exe");
        WriteBytes(m_program / "manual.html", "<html></html>");
        session.RunFrom(m_program);
    }
    ~ManualKey() override {
        if (m_before) {
            SetDefault(kExtension, *m_before);
        } else {
            ::RegDeleteKeyValueW(HKEY_CLASSES_ROOT, kExtension, nullptr);
        }
        ::RegDeleteTreeW(HKEY_CLASSES_ROOT, kKind);
    }
    void Register(const std::wstring& command) {
        SetDefault(kExtension, L"PlotvaneTestPage");
        SetDefault(std::wstring(kKind) + L"\\shell\\open\\command", command);
    }
    std::wstring NotingCommand() const {
        std::wstring system(MAX_PATH, L'\0');
        system.resize(::GetSystemDirectoryW(system.data(), MAX_PATH));
        return system + L"\\cmd.exe /c echo %1>\"" + m_note.wstring() + L"\"";
    }
    // The command may have a window, and the window manager gives the keyboard to it in its own time.
    template <class Condition>
    static ::testing::AssertionResult PressUntil(const RemoteWindow& front, Key key, const Condition& isSo) {
        return test::PressUntil([&] { return BringToFront(front); }, key, isSo);
    }
    // The window of the program that has this control; an empty one if there is none.
    RemoteWindow WindowWith(int control) const {
        for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
            if (window.Control(control).Exists()) return window;
        }
        return {};
    }
    // What the browser is asked for after F1, without the folder.
    std::string AddressAsked(const RemoteWindow& front) {
        std::filesystem::remove(m_note);
        EXPECT_TRUE(
            PressUntil(front, {VK_F1}, [this] { return BytesOf(m_note).find('#') != std::string::npos; }));
        const std::string address = BytesOf(m_note);
        EXPECT_TRUE(address.starts_with("file:///")) << address;
        const std::size_t name = address.rfind('/') + 1;
        return address.substr(name, address.find_first_of("\r\n") - name);
    }

    const std::optional<std::wstring> m_before = DefaultOf(kExtension);
    const std::filesystem::path m_program = session.Folder() / L"a program \u00FC";
    const std::filesystem::path m_note = session.Folder() / "note.txt";
};

TEST_F(ManualKey, OpensThePageOfTheWindowInFront) {
    Register(NotingCommand());
    EnterWithKeyboard(ProgramState::LiveHeld);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_EQ(AddressAsked(main), "manual.html#main-window");
    ASSERT_TRUE(PressUntil(main, Ctrl('M'), [this] { return OpenMeters(main).size() == 1; }));
    const RemoteWindow meter = OpenMeters(main).front();
    EXPECT_EQ(AddressAsked(meter), "manual.html#meters");
    RemoteWindow preferences;
    ASSERT_TRUE(PressUntil(meter, Ctrl(VK_OEM_COMMA),
                           [&] { return (preferences = WindowWith(IDC_PREFS_TRACE_LIST)).Exists(); }));
    EXPECT_EQ(AddressAsked(preferences), "manual.html#preferences");
    Cancel(preferences);
    main.Post(WM_SYSCOMMAND, ID_SYSMENU_ABOUT);
    EXPECT_EQ(AddressAsked(session.DialogWith(IDC_ABOUT_VERSION)), "manual.html#README");
}

// The address names the folder with its blanks and letters encoded.
TEST_F(ManualKey, OpensItFromAFolderOfAnyName) {
    Register(NotingCommand());
    EnterWithKeyboard(ProgramState::Idle);
    ASSERT_FALSE(HasFatalFailure());
    AddressAsked(main);
    EXPECT_NE(BytesOf(m_note).find("/a%20program%20%C3%BC/manual.html#"), std::string::npos)
        << BytesOf(m_note);
}

TEST_F(ManualKey, SaysSoWhereThereIsNoManual) {
    Register(NotingCommand());
    std::filesystem::remove(m_program / "manual.html");
    EnterWithKeyboard(ProgramState::Idle);
    ASSERT_FALSE(HasFatalFailure());
    PressKey({VK_F1});
    ConfirmMessage(L"Sorry, can't open the manual. Is manual.html beside the program?", L"Error");
    EXPECT_FALSE(std::filesystem::exists(m_note));
}

}  // namespace
}  // namespace plotvane::test
