#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <functional>
#include <string>

#include "tests/support/DegreeSign.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/TempFolder.h"
#include "tools/drives/DriveRecord.h"
#include "tools/drives/RecordText.h"
#include "tools/drives/ScriptedDrive.h"

namespace plotvane {
namespace {

using test::BytesOf;
using test::TempFolder;

constexpr std::string_view kControlCodes = "\xFF\xFE\xFD";

std::wstring WideOf(const std::filesystem::path& path) {
    return path.wstring();
}

bool WaitUntil(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        Sleep(5);
    }
    return true;
}

// The stand-in host with a program that only reads, in a temporary folder.
class Simulator : public testing::Test {
protected:
    void SetUp() override { SetEnvironmentVariableW(L"PIPE_READER", nullptr); }

    void TearDown() override {
        test::WriteBytes(m_folder / "enough.txt", "");
        if (m_process.hProcess == nullptr) return;
        if (WaitForSingleObject(m_process.hProcess, 0) == WAIT_TIMEOUT)
            TerminateProcess(m_process.hProcess, 99);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
        CloseHandle(m_output);
    }

    void Start(const std::wstring& options) {
        SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        m_output = CreateFileW(WideOf(m_folder / "output.txt").c_str(), GENERIC_WRITE,
                               FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable, CREATE_ALWAYS, 0, nullptr);
        ASSERT_NE(m_output, INVALID_HANDLE_VALUE);
        std::wstring command = L"\"" + WideOf(test::ProgramFolder() / L"diagnel-sim.exe") +
                               L"\" --folder \"" + WideOf(m_folder.Path()) + L"\" " + options + L" \"" +
                               WideOf(test::ProgramFolder() / L"pipe-reader.exe") + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = startup.hStdError = m_output;
        ASSERT_NE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                 &startup, &m_process),
                  0);
    }

    int ExitCode() {
        if (!WaitUntil([&] { return WaitForSingleObject(m_process.hProcess, 0) == WAIT_OBJECT_0; }))
            return -1;
        DWORD code = 0;
        GetExitCodeProcess(m_process.hProcess, &code);
        return static_cast<int>(code);
    }

    int Run(const std::wstring& options) {
        Start(options);
        return ExitCode();
    }

    std::string Output() { return BytesOf(m_folder / "output.txt"); }
    std::string Received() { return BytesOf(m_folder / "received.bin"); }
    std::string EndOfReader() { return BytesOf(m_folder / "end.txt"); }

    TempFolder m_folder;

private:
    PROCESS_INFORMATION m_process{};
    HANDLE m_output = nullptr;
};

// The blocks in a stream, without the control codes between them.
std::vector<std::string> BlocksOf(const std::string& stream) {
    std::vector<std::string> blocks;
    for (std::size_t i = 0; i < stream.size();) {
        const bool isControl = kControlCodes.find(stream[i]) != std::string_view::npos;
        const std::size_t length = isControl ? 1 : RecordBuffer::kBlockSize;
        if (!isControl) blocks.push_back(stream.substr(i, length));
        i += length;
    }
    return blocks;
}

TEST_F(Simulator, PlaysTheBuiltInDriveAndClosesTheProgram) {
    EXPECT_EQ(Run(L"--seconds 1 --rate 20 --end both --pause 0.1"), 0);
    EXPECT_EQ(EndOfReader(), "told to close");
    const std::string stream = Received();
    const std::vector<std::string> blocks = BlocksOf(stream);
    ASSERT_EQ(blocks.size(), 20u);
    const ScriptedDrive drive;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const std::string record =
            RecordOf(drive, static_cast<double>(i) / 20.0, RecordForm::Normal, "038 906 019 FT");
        EXPECT_EQ(blocks[i], record + std::string(RecordBuffer::kBlockSize - record.size(), '\0')) << i;
    }
    EXPECT_EQ(stream.substr(stream.size() - 2), "\xFE\xFD");
    EXPECT_NE(Output().find("records"), std::string::npos) << Output();
}

TEST_F(Simulator, SaysBetweenRecordsThatNothingIsNew) {
    EXPECT_EQ(Run(L"--seconds 1 --rate 2"), 0);
    const std::string stream = Received();
    const std::size_t first = RecordBuffer::kBlockSize;
    ASSERT_GT(stream.size(), first);
    EXPECT_EQ(stream[first], '\xFF');
    // Half a second between the records, one byte every 50 ms.
    const std::size_t idle = stream.find_first_not_of('\xFF', first) - first;
    EXPECT_GE(idle, 4u);
    EXPECT_LE(idle, 9u);
}

TEST_F(Simulator, RemovesTheExchangeFileThatTheProgramLeft) {
    EXPECT_EQ(Run(L"--seconds 0.2"), 0);
    EXPECT_FALSE(std::filesystem::exists(m_folder / "MB-PIPE.TXT"));
}

TEST_F(Simulator, EndsWithTheExitCodeOfAProgramThatDies) {
    SetEnvironmentVariableW(L"PIPE_READER", L"quit 600");
    EXPECT_EQ(Run(L"--loop"), 7);
    EXPECT_EQ(EndOfReader(), "quit");
    EXPECT_NE(Output().find("exit code 7"), std::string::npos) << Output();
}

TEST_F(Simulator, NeverHangsOnAProgramThatDoesNotRead) {
    SetEnvironmentVariableW(L"PIPE_READER", L"deaf");
    Start(L"--rate 200 --loop");
    // By the time records are left out, much more has become due than the pipe holds.
    ASSERT_TRUE(WaitUntil([&] { return Output().find("left out") != std::string::npos; })) << Output();
    test::WriteBytes(m_folder / "enough.txt", "");
    EXPECT_EQ(ExitCode(), 0);
}

TEST_F(Simulator, TheProgramSeesTheEndOfThePipeWhenTheHostDies) {
    EXPECT_EQ(Run(L"--fault die@0.2"), 0);
    ASSERT_TRUE(WaitUntil([&] { return EndOfReader() == "end of pipe"; })) << EndOfReader();
    // Two records and half of the third.
    const std::vector<std::string> blocks = BlocksOf(Received());
    ASSERT_EQ(blocks.size(), 3u);
    EXPECT_EQ(blocks.back().size(), RecordBuffer::kBlockSize / 2);
}

TEST_F(Simulator, ClosesThePipeInTheMiddleOfABlock) {
    EXPECT_EQ(Run(L"--seconds 0.5 --fault stop-mid-block@0.2"), 10);
    EXPECT_EQ(EndOfReader(), "end of pipe");
    EXPECT_EQ(BlocksOf(Received()).back().size(), RecordBuffer::kBlockSize / 2);
}

TEST_F(Simulator, SendsExactlyWhatAScriptSays) {
    test::WriteBytes(m_folder / "s.txt",
                     "bytes FF 4D 2C\nwait 60\nbytes 1A 0D 0A 0A FF\ndrain 5000\nrecord \xB0\\xFF\nclose\n");
    EXPECT_EQ(Run(L"--script \"" + WideOf(m_folder / "s.txt") + L"\""), 10);
    // The pipe translates no line end, and no byte ends the stream.
    EXPECT_EQ(Received(), "\xFFM,\x1A\r\n\n\xFF\xB0\xFF" + std::string(511, '\0'));
}

// The example of docs/pipe-protocol.md.
TEST_F(Simulator, SendsTheDocumentedExampleToTheByte) {
    test::WriteBytes(
        m_folder / "s.txt",
        "record 038 906 019 FT,G001,F0,780,/min,G001,F1,90.0,\\xB0C,G001,F2,50, km/h,G001,F3,4.2,l/h,"
        "G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,G000,,,,\n"
        "bytes FF FF FE FD\n");
    EXPECT_EQ(Run(L"--script \"" + WideOf(m_folder / "s.txt") + L"\""), 0);
    EXPECT_EQ(EndOfReader(), "told to close");
    const std::string stream = Received();
    ASSERT_EQ(stream.size(), 0x205u);
    EXPECT_EQ(stream.substr(0, 0x10), "038 906 019 FT,G");
    EXPECT_EQ(stream.substr(0x2C, 4), "," DEGREES_C ",");
    EXPECT_EQ(stream.substr(0x8E, 3), std::string(",,,"));
    EXPECT_EQ(stream.substr(0x91, 0x170), std::string(0x170, '\0'));
    EXPECT_EQ(stream.substr(0x201), "\xFF\xFF\xFE\xFD");
}

TEST_F(Simulator, ComplainsAboutAWrongScript) {
    test::WriteBytes(m_folder / "s.txt", "wait 1\nsend FF\n");
    EXPECT_EQ(Run(L"--script \"" + WideOf(m_folder / "s.txt") + L"\""), 2);
    EXPECT_NE(Output().find("line 2"), std::string::npos) << Output();
}

TEST_F(Simulator, PlaysAPlainCsv) {
    test::WriteBytes(m_folder / "d.csv", "t,rpm,coolant_c\n0,780,90.5\n60,790,91\n");
    EXPECT_EQ(Run(L"--seconds 0.1 --csv \"" + WideOf(m_folder / "d.csv") + L"\" --module \"A 1\""), 0);
    EXPECT_TRUE(Received().starts_with("A 1,G001,F0,780,/min,G001,F1,90.5," DEGREES_C ",G000,,,,"))
        << Received();
}

TEST_F(Simulator, ComplainsAboutACsvThatCannotBeOpened) {
    EXPECT_EQ(Run(L"--csv \"" + WideOf(m_folder / "none.csv") + L"\""), 2);
    EXPECT_NE(Output().find("cannot be opened"), std::string::npos) << Output();
}

TEST_F(Simulator, KeepsThePipeOpenAndPlaysAgain) {
    SetEnvironmentVariableW(L"PIPE_READER", L"quit 1029");
    EXPECT_EQ(Run(L"--keep-open --seconds 0.1 --rate 10"), 7);
    const std::string stream = Received();
    EXPECT_EQ(stream.size(), 1029u);
    const std::size_t stop = stream.find('\xFE');
    ASSERT_NE(stop, std::string::npos);
    EXPECT_EQ(stream.substr(stop, 2), "\xFE\xFF");
    EXPECT_EQ(stream.substr(stop + 2, 15), "038 906 019 FT,");
}

TEST_F(Simulator, RefusesToBeASecondHost) {
    const HANDLE other = CreateMutexW(nullptr, FALSE, L"DIAGNEL-Running");
    EXPECT_EQ(Run(L"--seconds 0.2"), 3);
    EXPECT_NE(Output().find("a host is already running"), std::string::npos) << Output();
    CloseHandle(other);
}

TEST_F(Simulator, ComplainsAboutArgumentsItDoesNotKnow) {
    EXPECT_EQ(Run(L"--sedonds 3"), 2);
    EXPECT_NE(Output().find("unknown option --sedonds"), std::string::npos) << Output();
    EXPECT_FALSE(std::filesystem::exists(m_folder / "MB-PIPE.TXT"));
}

}  // namespace
}  // namespace plotvane
