// Settings files that another program has open in each way in which Windows lets it.
#include <gtest/gtest.h>
#include <windows.h>

#include "files/AtomicFile.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

using Access = DWORD;
using Sharing = DWORD;

class HeldFile : public testing::TestWithParam<std::tuple<Access, Sharing>> {
protected:
    HeldFile() {
        WriteBytes(m_file, kOld);
        m_holder = ::CreateFileW(m_file.c_str(), std::get<0>(GetParam()), std::get<1>(GetParam()), nullptr,
                                 OPEN_EXISTING, 0, nullptr);
    }
    ~HeldFile() override { LetGo(); }
    void LetGo() {
        if (m_holder != INVALID_HANDLE_VALUE) ::CloseHandle(m_holder);
        m_holder = INVALID_HANDLE_VALUE;
    }
    // Whether the holder lets others do all of this.
    bool Shares(DWORD what) const { return (std::get<1>(GetParam()) & what) == what; }

    static constexpr std::string_view kOld = "old text\r\n";
    TempFolder m_folder;
    const std::filesystem::path m_file = m_folder / "Prefs.cfg";
    HANDLE m_holder;
};

TEST_P(HeldFile, IsReplacedWhereItMayBeWrittenAndStaysOtherwise) {
    ASSERT_NE(m_holder, INVALID_HANDLE_VALUE);
    const auto start = ::GetTickCount64();
    const bool isReplaced = ReplaceTextFile(m_file, "a new text\n");
    EXPECT_LT(::GetTickCount64() - start, 2000u);
    EXPECT_EQ(isReplaced, Shares(FILE_SHARE_READ | FILE_SHARE_WRITE));
    LetGo();
    EXPECT_EQ(BytesOf(m_file), isReplaced ? "a new text\r\n" : kOld);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}), 1);
}

INSTANTIATE_TEST_SUITE_P(InEachWay, HeldFile,
                         testing::Combine(testing::Values(GENERIC_READ, GENERIC_WRITE,
                                                          GENERIC_READ | GENERIC_WRITE),
                                          testing::Range<Sharing>(0, 8)),
                         [](const auto& info) {
                             const auto [access, sharing] = info.param;
                             return std::string((access & GENERIC_READ) != 0 ? "Reads" : "") +
                                    ((access & GENERIC_WRITE) != 0 ? "Writes" : "") + "Lets" +
                                    ((sharing & FILE_SHARE_READ) != 0 ? "Read" : "") +
                                    ((sharing & FILE_SHARE_WRITE) != 0 ? "Write" : "") +
                                    ((sharing & FILE_SHARE_DELETE) != 0 ? "Delete" : "");
                         });

}  // namespace
}  // namespace plotvane::test
