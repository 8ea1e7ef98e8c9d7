// Working folders of every kind.
#include "tests/support/system/Records.h"
#include "tests/support/system/RefusingFolder.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

constexpr const wchar_t* kNotSaved = L"Sorry, the scaling values couldn't be saved to disk";

class ReadOnlyFolder : private RefusingFolder, public Replay {
protected:
    ReadOnlyFolder() : Replay(Path()) {}

    void SetUp() override {
        if (Path().empty()) GTEST_SKIP() << "no folder here refuses this user a new file";
    }

    std::filesystem::path LogElsewhere() {
        WriteBytes(m_elsewhere / "x.csv", LogThatLingersAt(kDriving));
        return m_elsewhere / "x.csv";
    }

    TempFolder m_elsewhere;
};

TEST_F(ReadOnlyFolder, DoesNotPreventStartingAndClosing) {
    ASSERT_FALSE(std::filesystem::exists(session.Scaling("")));
    Start();
    EXPECT_FALSE(HasDialog());
    EXPECT_TRUE(session.Closes());
    EXPECT_FALSE(std::filesystem::exists(session.Scaling("")));
}

TEST_F(ReadOnlyFolder, PlaysALogAndSaysAtItsEndThatTheRangesAreNotSaved) {
    Start();
    Load(LogElsewhere());
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_FALSE(HasDialog());
    EXPECT_EQ(main.Text(IDC_SCALE_MAX), L"6000");  // the built-in range of the unit
    Press(IDC_STOP);
    ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    EXPECT_FALSE(HasDialog());
    EXPECT_TRUE(session.Closes());
}

TEST_F(ReadOnlyFolder, SaysSoAlsoWhenClosedDuringAReplayAndEnds) {
    Start();
    Load(LogElsewhere());
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    main.Close();
    ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
}

// A folder copied from a disc: every file is there, but write-protected.
class ReadOnlyFiles : public Replay {
protected:
    void Protect(const char* name, std::string_view bytes) {
        std::filesystem::create_directory(session.Scaling(""));
        WriteBytes(session.Scaling(name), bytes);
        ASSERT_TRUE(::SetFileAttributesW(session.Scaling(name).c_str(), FILE_ATTRIBUTE_READONLY));
        m_protected.push_back(session.Scaling(name));
    }
    void TearDown() override {
        for (const auto& file : m_protected) ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    }

private:
    std::vector<std::filesystem::path> m_protected;
};

TEST_F(ReadOnlyFiles, AreReadAndStayAsTheyAre) {
    const std::string prefs = "BackColor=400000\r\nWidth=300\r\nHeight=200\r\n";
    const std::string defaults = "km/h,0,300,\r\nV,0,15,\r\n";
    const std::string ranges = ScalingBytes(7, "500,5000,0,100,0,100,0,30,");
    Protect("Prefs.cfg", prefs);
    Protect("Defaults.cfg", defaults);
    Protect(kScalingFile, ranges);
    Start();
    EXPECT_EQ(main.Size().cx, 0x300);
    Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_EQ(main.Text(IDC_SCALE_MAX), L"5000");
    EXPECT_EQ(main.Text(IDC_SHIFT_LABEL), L"PixelShift:7");
    Press(IDC_STOP);
    ConfirmMessage(kNotSaved, L"Error");
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling("Prefs.cfg")), prefs);
    EXPECT_EQ(BytesOf(session.Scaling("Defaults.cfg")), defaults);
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ranges);
}

// A folder whose full path has this many characters.
std::filesystem::path FolderOfLength(std::size_t length) {
    const std::filesystem::path above = std::filesystem::temp_directory_path();
    static int folders = 0;
    std::wstring name = L"plotvane test \u0416 " + std::to_wstring(::GetCurrentProcessId()) + L" " +
                        std::to_wstring(++folders) + L" ";
    const std::size_t missing = length - (above / name).wstring().size();
    return above / (name + std::wstring(missing, L'x'));
}

// Whether this program, which says of itself that it knows long paths as the real one does, can make a file
// of so long a path in the folder.
bool TakesLongPaths(const std::filesystem::path& folder) {
    const std::filesystem::path file = folder / (std::string("Scaling-") + kScalingFile);
    WriteBytes(file, "x");
    return std::filesystem::remove(file);
}

class LongFolder : public Replay, public ::testing::WithParamInterface<std::size_t> {
protected:
    LongFolder() : Replay(FolderOfLength(GetParam())) {}
    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove_all(session.Folder(), ignored);
    }

    TempFolder m_elsewhere;
};

TEST_P(LongFolder, HoldsTheSettingsLikeAnyOther) {
    ASSERT_EQ(session.Folder().wstring().size(), GetParam());
    if (!TakesLongPaths(session.Folder())) GTEST_SKIP() << "long paths are switched off on this system";
    WriteBytes(m_elsewhere / "x.csv", LogThatLingersAt(kDriving));
    Start();
    Load(m_elsewhere / "x.csv");
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    Press(IDC_STOP);
    EXPECT_TRUE(
        Becomes([this] { return BytesOf(session.Scaling(kScalingFile)); }, ScalingBytes(3, kUnitRanges)));
    EXPECT_FALSE(HasDialog());
    ASSERT_TRUE(session.Closes());
    for (const char* const name : {"Prefs.cfg", "Defaults.cfg"}) {
        EXPECT_TRUE(std::filesystem::exists(session.Scaling(name))) << name;
    }
}

// Without long paths Windows opens files with paths of up to 259 characters. The longest path among the
// settings is that of the ranges: the folder, a backslash and "Scaling\038-906-019-FT.SCL". The path of a
// current folder has at most 258 characters; there the ranges need long paths.
constexpr std::size_t kLongestForPlainPaths = 259 - 27;
constexpr std::size_t kLongestCurrentFolder = 258;
INSTANTIATE_TEST_SUITE_P(Of, LongFolder, ::testing::Values(kLongestForPlainPaths, kLongestCurrentFolder),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace plotvane::test
