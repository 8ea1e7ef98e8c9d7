#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "res/resource.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/TempFolder.h"
#include "tests/support/system/Await.h"
#include "tests/support/system/ChildProcess.h"
#include "tests/support/system/PipeHost.h"
#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// One run of the real program in a working folder of its own. The destructor ends whatever still runs.
class Session {
public:
    // `below` is a folder inside the session's own one, or a whole path. If it is missing, the constructor
    // makes it.
    explicit Session(const std::filesystem::path& below = {});

    // Runs the program in that folder instead of the one beside the tests.
    void RunFrom(std::filesystem::path programFolder) { m_programFolder = std::move(programFolder); }

    // Without a host the program offers logs to replay; with one it plots live.
    void Start();
    void StartWithHost();
    // The same with another block of descriptors than a 64-bit host's; `makeBlock` gets the pipe and its
    // descriptor.
    void StartWithHost(const std::function<std::vector<BYTE>(HANDLE, int)>& makeBlock);
    // The same with something else in place of the pipe: the program gets this handle, which must be
    // inheritable, as this descriptor.
    void StartWithHostAt(HANDLE inherited, int descriptor);
    // The same without the file in which the host says where its pipe is.
    void StartWithHostButNoExchangeFile();

    // Through the stand-in host, which inherits its pipe to the program as the real one does. `options` are
    // its own; the working folder is added.
    void StartThroughStandIn(const std::wstring& options);
    // The same through the host that the documentation shows, which starts the program in its own folder.
    void StartThroughDocumentedHost();

    PipeHost& Host() { return *m_host; }
    // The program, or the host if a host started the program.
    ChildProcess& Process() const { return *m_process; }

    // Waits for the program's main dialog. An empty window if it does not come.
    RemoteWindow Main() const;
    // Waits for a window of the program, other than the main one, that holds the control `id`: a message box,
    // for example, whose text is the control 0xFFFF, or the About dialog. An empty window if it does not
    // come.
    RemoteWindow DialogWith(int id) const;

    // Waits for a message with this text, which must come, and confirms it.
    void ConfirmMessage(const std::wstring& text, const std::wstring& caption) const;

    // Waits until value box `slot` reads `text`, which is how a test knows that a record has arrived.
    ::testing::AssertionResult Shows(int slot, const std::wstring& text) const;
    std::wstring ValueText(int slot) const { return Main().Text(IDC_VALUE_FIRST + slot); }

    // Closes the main window and waits for the end of the program.
    ::testing::AssertionResult Closes() const;

    const std::filesystem::path& Folder() const { return m_workingFolder; }
    std::filesystem::path Scaling(const std::filesystem::path& name) const {
        return Folder() / "Scaling" / name;
    }
    std::filesystem::path ExchangeFile() const { return Folder() / "MB-PIPE.TXT"; }

private:
    void Launch(std::vector<BYTE> descriptors = {});

    TempFolder m_folder;
    const std::filesystem::path m_workingFolder;
    std::filesystem::path m_programFolder = ProgramFolder();
    std::unique_ptr<PipeHost> m_host;
    std::unique_ptr<ChildProcess> m_process;
    bool m_throughHost = false;  // the process is a host, and the program another one
    mutable RemoteWindow m_main;
};

}  // namespace plotvane::test
