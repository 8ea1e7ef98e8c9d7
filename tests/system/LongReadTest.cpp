// Logs that take seconds to read: with a line of gigabytes, for example the NULs that a crash leaves in a
// file. The window keeps answering, and a Stop or a close ends the reading at once.
#include <windows.h>
// Needs the types of windows.h.
#include <winioctl.h>

#include "tests/support/system/Handle.h"
#include "tests/support/system/Prompt.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

// The file is sparse, so the disk need not hold these bytes.
constexpr std::uintmax_t kNothing = std::uintmax_t{64} << 30;  // bytes; reading them takes minutes

// Makes a file this long. std::filesystem::resize_file would need as much free space.
void Lengthen(const std::filesystem::path& path, std::uintmax_t size) {
    const Handle file(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    DWORD returned = 0;
    ::DeviceIoControl(file.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &returned, nullptr);
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(size);
    ASSERT_TRUE(::SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN) && ::SetEndOfFile(file.Get()))
        << ::GetLastError();
}

class LongRead : public Replay {
protected:
    // A file with this beginning, then NULs.
    std::filesystem::path WriteAndLengthen(const std::filesystem::path& name, std::string_view beginning) {
        const auto path = WriteLog(name, beginning);
        Lengthen(path, kNothing);
        return path;
    }
    // Plays three rows of a log, up to the long one.
    void PlayToTheLongRow() {
        Start();
        Load(
            WriteAndLengthen("long.csv", ClassicLog({{"0.01", kIdle}, {"0.02", kIdle}, {"0.03", kDriving}})));
        ASSERT_TRUE(session.Shows(0, L"1240 /min"));
        ASSERT_TRUE(Becomes([this] { return main.Text(IDC_ELAPSED); }, L"0.03"));
    }
};

TEST_F(LongRead, InARowKeepsTheWindowAliveAndACloseEndsIt) {
    PlayToTheLongRow();
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(KeepsAnswering(main));
    EXPECT_TRUE(main.IsEnabled(IDC_STOP)) << "the row is still being read";
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(LongRead, InARowIsEndedByAStop) {
    PlayToTheLongRow();
    ASSERT_FALSE(HasFatalFailure());
    AnswerWatch answers(main.Get());
    Press(IDC_STOP);
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_FALSE(HasDialog()) << "no complaint about the row";
    Load(WriteLog("other.csv", LogThatLingersAt(kOther)));
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(LongRead, InAHeaderKeepsTheWindowAliveAndACloseEndsIt) {
    Start();
    Load(WriteAndLengthen("long.csv", "Friday,20,November,2026,10:15:30\r\n038 906 019 FT,Engine"));
    AnswerWatch answers(main.Get());
    // Neither may open anything over the log.
    main.PostClick(IDC_LOAD_LOG);
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(Stays([this] { return HasDialog(); }, false, 1s));
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ClosesPromptly(session));
}

// The program reads labels with the first record.
TEST(LongReadOfLabels, KeepsTheWindowAliveAndACloseEndsIt) {
    Session session;
    const auto labels = session.Folder() / "labels" / "038-906-019-FT.LBL";
    std::filesystem::create_directory(labels.parent_path());
    WriteBytes(labels, "001,1,Engine speed\r\n");
    Lengthen(labels, kNothing);
    session.StartWithHost();
    const RemoteWindow main = session.Main();
    ASSERT_TRUE(Becomes([&] { return main.IsEnabled(IDC_PAUSE); }, true));
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(Becomes([&] { return session.Host().Unread(); }, 0u));
    EXPECT_TRUE(KeepsAnswering(main));
    EXPECT_EQ(session.ValueText(0), L"") << "the labels are still being read";
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test
