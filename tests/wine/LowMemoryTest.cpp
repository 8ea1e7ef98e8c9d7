// Memory runs out while the program records a drive. Linux refuses what it asks for; it must do without.
#include "tests/support/system/LookingBack.h"
#include "tests/support/system/Prompt.h"
#include "tests/wine/support/ProgramLimit.h"

namespace plotvane::test {
namespace {

// For as long as the object lives, a program gets hardly any more memory than it has.
class LowMemory {
public:
    // Small requests may go on; the recording wants 226 KB at once.
    explicit LowMemory(std::filesystem::path folder) : m_folder(std::move(folder)) {
        EXPECT_TRUE(
            LimitProgram(m_folder, L"--data=$(( ($(awk '/^VmData/ {print $2}' $p/status) + 200) * 1024 )):"));
    }
    ~LowMemory() { EXPECT_TRUE(LimitProgram(m_folder, L"--data=unlimited:")); }
    LowMemory(const LowMemory&) = delete;
    LowMemory& operator=(const LowMemory&) = delete;

private:
    const std::filesystem::path m_folder;
};

// The rows are a millisecond apart, so the replay waits for none.
std::string LongLog() {
    std::vector<LogRowText> rows;
    for (int row = 1; row <= 200'000; ++row) {
        const std::string digits = std::to_string(1000 + row % 1000);
        rows.push_back({std::to_string(row / 1000) + "." + digits.substr(1), digits + ",90.0,50,4.2"});
    }
    return ClassicLog(rows);
}

class RecordingInLowMemory : public LookingBack {
protected:
    void StartRecording() {
        Start();
        Load(WriteLog("x.csv", LongLog()));
        ASSERT_TRUE(Becomes([this] { return session.ValueText(0).empty(); }, false));
        Open();
        ASSERT_TRUE(TableHas(L"001-1\t/min\t"));
    }

    // How far the text of the last line reaches, in pixels.
    int LengthOfLastLine() const {
        const ScreenPicture client = PictureOf(history.ClientScreenRect());
        for (int x = client.width - 1; x > 0; --x) {
            for (int y = client.height - 16; y < client.height; ++y) {
                if (client.At(x, y) == 0xFFFFFF) return x;
            }
        }
        return 0;
    }

    // Waits until something is so, for as long as the log plays on.
    template <class Condition>
    ::testing::AssertionResult BecomesInTheEnd(const Condition& isSo) {
        while (!isSo()) {
            if (const auto playsOn = PlaysOn(); !playsOn) return playsOn;
        }
        return ::testing::AssertionSuccess();
    }
    ::testing::AssertionResult PlaysOn() const {
        const std::wstring before = main.Text(IDC_ELAPSED);
        return Becomes([&] { return main.Text(IDC_ELAPSED) == before; }, false);
    }
    ::testing::AssertionResult ChartMovesOn() const {
        const RECT chart = main.Control(IDC_CHART).ClientScreenRect();
        const ScreenPicture before = PictureOf(chart);
        return Becomes([&] { return PictureOf(chart).pixels == before.pixels; }, false);
    }
};

TEST_F(RecordingInLowMemory, EndsWithAWordAndTheChartGoesOn) {
    StartRecording();
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_TRUE(Becomes([this] { return LengthOfLastLine() > 0; }, true));
    const int usual = LengthOfLastLine();
    {
        const LowMemory low(session.Folder());
        ASSERT_TRUE(BecomesInTheEnd([&] { return LengthOfLastLine() > 2 * usual; })) << "it says so";
        const std::wstring table = TableOf(history);
        EXPECT_TRUE(PlaysOn());
        EXPECT_EQ(TableOf(history), table) << "what was recorded stays";
        Key(VK_ESCAPE);
        EXPECT_TRUE(Becomes([this] { return history.Exists(); }, false));
        EXPECT_TRUE(ChartMovesOn());
        EXPECT_TRUE(KeepsAnswering(main));
    }
    // The next run is recorded again.
    Press(IDC_STOP);
    ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    Press(IDC_PAUSE);
    ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, true));
    Open();
    const std::wstring table = TableOf(history);
    EXPECT_TRUE(Becomes([&] { return TableOf(history) == table; }, false));
    EXPECT_LT(LengthOfLastLine(), 2 * usual);
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test
