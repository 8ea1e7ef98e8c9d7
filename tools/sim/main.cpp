// diagnel-sim: stands in for the host Diagnel. docs/pipe-protocol.md describes what it sends.

#include <windows.h>

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "base/AtomicFile.h"
#include "tools/drives/PlainCsv.h"
#include "tools/drives/ScriptedDrive.h"
#include "tools/sim/Console.h"
#include "tools/sim/DrivePlayer.h"
#include "tools/sim/HostScript.h"
#include "tools/sim/HostedProgram.h"
#include "tools/sim/PipeLink.h"
#include "tools/sim/PipeToProgram.h"
#include "tools/sim/SimOptions.h"
#include "tools/sim/WideText.h"

namespace plotvane {
namespace {

namespace fs = std::filesystem;

constexpr int kBadRequest = 2;
constexpr int kCannotBegin = 3;
constexpr int kDoesNotClose = 4;

constexpr DWORD kCloseGraceMs = 20'000;

class Simulator {
public:
    int Run(const std::vector<std::wstring>& arguments) {
        auto [options, error] = ParseSimOptions(arguments);
        if (!error.empty())
            return Fail(kBadRequest, WideFromWindows1252(error) + L"; --help lists the options");
        if (options.help) {
            m_console.Line(WideFromWindows1252(SimHelp()));
            return 0;
        }
        m_options = std::move(options);
        const bool isScripted = !m_options.script.empty();
        if (const int code = isScripted ? LoadScript() : LoadDrive()) return code;
        if (const int code = Begin()) return code;
        PipeLink link(m_pipe, m_program, m_console);
        return End(isScripted ? RunScript(link, m_script.steps) : Play(link, *m_drive, m_options.play));
    }

private:
    int Fail(int code, const std::wstring& what) {
        m_console.Line(L"diagnel-sim: " + what);
        return code;
    }

    int LoadScript() {
        m_script = LoadHostScript(m_options.script);
        if (m_script.error.empty()) return 0;
        return Fail(kBadRequest, m_options.script.wstring() + L" " + WideFromWindows1252(m_script.error));
    }

    // Loads the drive to play. 0, or the exit code.
    int LoadDrive() {
        if (m_options.csv.empty()) {
            m_drive = std::make_unique<ScriptedDrive>();
            return 0;
        }
        PlainCsvResult csv = LoadPlainCsv(m_options.csv);
        if (!csv.drive)
            return Fail(kBadRequest, m_options.csv.wstring() + L" " + WideFromCodePage(CP_UTF8, csv.error));
        for (const std::string& name : csv.ignored)
            m_console.Line(L"no place for the column " + WideFromCodePage(CP_UTF8, name));
        if (csv.droppedRows > 0)
            m_console.Line(std::to_wstring(csv.droppedRows) + L" rows have no usable time");
        m_drive = std::move(csv.drive);
        return 0;
    }

    // Announces the host, opens the pipe and starts the program, in this order, since the program looks for
    // the mutex and the pipe as soon as it runs. 0, or the exit code.
    int Begin() {
        std::error_code error;
        m_options.folder = fs::absolute(m_options.folder.empty() ? fs::path(L".") : m_options.folder, error);
        if (!fs::is_directory(m_options.folder, error))
            return Fail(kCannotBegin, L"no such folder: " + m_options.folder.wstring());
        const fs::path program = ProgramPath();
        if (!fs::is_regular_file(program, error))
            return Fail(kCannotBegin, L"no such program: " + program.wstring());

        // Never closed: it exists as long as this host runs.
        if (CreateMutexW(nullptr, FALSE, L"DIAGNEL-Running") == nullptr ||
            GetLastError() == ERROR_ALREADY_EXISTS) {
            return Fail(kCannotBegin, L"a host is already running");
        }
        if (!m_pipe.Open()) return Fail(kCannotBegin, L"cannot create a pipe");
        if (!ReplaceTextFile(ExchangeFile(), std::to_string(m_pipe.InheritedDescriptor()) + '\n'))
            return Fail(kCannotBegin, L"cannot write " + ExchangeFile().wstring());
        if (const DWORD code = m_program.Start(program, m_options.folder, m_pipe.InheritedDescriptor(),
                                               m_pipe.InheritedHandle())) {
            RemoveExchangeFile();
            return Fail(kCannotBegin,
                        L"cannot start " + program.wstring() + L": error " + std::to_wstring(code));
        }
        m_pipe.DropInherited();
        m_console.Line(L"started " + program.wstring() + L" in " + m_options.folder.wstring());
        return 0;
    }

    fs::path ProgramPath() const {
        std::error_code error;
        if (!m_options.program.empty()) return fs::absolute(m_options.program, error);
        std::wstring self(32768, L'\0');
        self.resize(GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size())));
        return fs::path(self).replace_filename(L"plotvane.exe");
    }

    int End(PlayResult result) {
        if (result == PlayResult::Closed) {
            m_console.Line(L"told the program to close");
            if (!m_program.WaitForEnd(kCloseGraceMs))
                return Fail(kDoesNotClose, L"the program did not close");
        } else if (result != PlayResult::ProgramGone) {
            m_console.Line(result == PlayResult::Stopped
                               ? L"nothing more to send; waiting for the program to end"
                               : L"closed the pipe; waiting for the program to end");
            m_program.WaitForEnd(INFINITE);
        }
        RemoveExchangeFile();
        const DWORD code = m_program.ExitCode().value_or(0);
        // A crashed program leaves a status code of the system, which has its high bits set.
        constexpr DWORD kStatusBits = 0xC0000000;
        if ((code & kStatusBits) == kStatusBits)
            m_console.Line(L"diagnel-sim: the program crashed, status " + std::to_wstring(code));
        else
            m_console.Line(L"the program ended with exit code " + std::to_wstring(code));
        return static_cast<int>(code);
    }

    fs::path ExchangeFile() const { return m_options.folder / L"MB-PIPE.TXT"; }

    // The program removes the file when it closes, but not when it crashes.
    void RemoveExchangeFile() const {
        std::error_code ignored;
        fs::remove(ExchangeFile(), ignored);
    }

    Console m_console;
    SimOptions m_options;
    HostScript m_script;
    std::unique_ptr<Drive> m_drive;
    PipeToProgram m_pipe;
    HostedProgram m_program;
};

}  // namespace
}  // namespace plotvane

int wmain(int count, wchar_t** arguments) {
    try {
        return plotvane::Simulator().Run({arguments + 1, arguments + count});
    } catch (const std::exception& e) {
        plotvane::Console().Line(L"diagnel-sim: " + plotvane::WideFromWindows1252(e.what()));
        return plotvane::kCannotBegin;
    }
}
