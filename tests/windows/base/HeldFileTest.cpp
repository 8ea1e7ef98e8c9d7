// Settings files that another program has open, in every way that Windows allows.
#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "base/AtomicFile.h"
#include "scaling/DefaultScaling.h"
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

std::string NameOf(const testing::TestParamInfo<std::tuple<Access, Sharing>>& info) {
    const auto [access, sharing] = info.param;
    std::string name;
    if ((access & GENERIC_READ) != 0) name += "Reads";
    if ((access & GENERIC_WRITE) != 0) name += "Writes";
    name += "Lets";
    if ((sharing & FILE_SHARE_READ) != 0) name += "Read";
    if ((sharing & FILE_SHARE_WRITE) != 0) name += "Write";
    if ((sharing & FILE_SHARE_DELETE) != 0) name += "Delete";
    return name;
}
INSTANTIATE_TEST_SUITE_P(InEachWay, HeldFile,
                         testing::Combine(testing::Values(GENERIC_READ, GENERIC_WRITE,
                                                          GENERIC_READ | GENERIC_WRITE),
                                          testing::Range<Sharing>(0, 8)),
                         NameOf);

// Held until the program gives up reading, but not until it would give up writing.
class DefaultsHeldForAMoment : public testing::TestWithParam<int> {};

TEST_P(DefaultsHeldForAMoment, StayAsTheUserHasThem) {
    const TempFolder folder;
    const std::string mine = "km/h,0,300,\r\nV,0,15,\r\n";
    WriteBytes(folder / "Defaults.cfg", mine);
    for (const auto load : {&DefaultScaling::LoadForPlotting, &DefaultScaling::LoadDefaultScaling}) {
        const HANDLE holder = ::CreateFileW((folder / "Defaults.cfg").c_str(), GENERIC_READ, 0, nullptr,
                                            OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(holder, INVALID_HANDLE_VALUE);
        std::thread scanner([holder] {
            ::Sleep(static_cast<DWORD>(GetParam()));
            ::CloseHandle(holder);
        });
        DefaultScaling table(folder.Path());
        (table.*load)();
        scanner.join();
        EXPECT_EQ(BytesOf(folder / "Defaults.cfg"), mine);
    }
}

INSTANTIATE_TEST_SUITE_P(Milliseconds, DefaultsHeldForAMoment,
                         testing::Values(40, 110, 125, 140, 155, 170, 200),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace plotvane::test
