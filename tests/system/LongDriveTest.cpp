// Looking back at many samples: a quarter of an hour at twenty a second, or as many as PLOTVANE_SAMPLES says,
// in scripts/soak.sh up to 150,000, of which the recording drops the first. A replay at eight times the speed
// waits for no row that follows the one before it within 0.04 seconds, so such rows come as fast as the
// program takes them.
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "tests/support/system/LookingBack.h"
#include "tests/support/system/Prompt.h"
#include "tests/support/system/Repeats.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr int kFastStep = 4;  // hundredths of a second
constexpr int kSlowRows = 6'000;
constexpr int kSlowStep = 40;  // twenty a second
constexpr int kRpm = 6'000;    // engine speeds, in turn; then the road speed is one higher

int FastRows() {
    static const int rows = Repeats("PLOTVANE_SAMPLES", 18'000);
    return rows;
}

// The recording keeps 72 pieces of 2048 samples; where it needs another one, the oldest goes. Rows count
// from 1.
int FirstKept(int newest) {
    constexpr int kPiece = 2048;
    constexpr int kMostPieces = 72;
    return 1 + kPiece * std::max(0, (newest + kPiece - 1) / kPiece - kMostPieces);
}

// In hundredths of a second.
int TimeOf(int row) {
    return std::min(row, FastRows()) * kFastStep + std::max(0, row - FastRows()) * kSlowStep;
}

std::string Formatted(const char* format, int one, int other) {
    char text[64];
    std::snprintf(text, sizeof text, format, one, other);
    return text;
}

std::string SecondsOf(int row) {
    return Formatted("%d.%02d", TimeOf(row) / 100, TimeOf(row) % 100);
}

// The whole log, a row after the other.
std::string LongLog() {
    std::vector<LogRowText> rows;
    for (int row = 1; row <= FastRows() + kSlowRows; ++row)
        rows.push_back({SecondsOf(row), Formatted("%d,90.0,%d,4.2", row % kRpm, row / kRpm)});
    return ClassicLog(rows);
}

// The rows as they are saved.
const std::string kSavedHead =
    "Time (s),001-1 (/min),001-2 (\xC2\xB0"
    "C),001-3 (km/h),001-4 (l/h)\r\n";
std::string SavedRow(int row) {
    return SecondsOf(row) + "0" + Formatted(",%d,90,%d,4.2\r\n", row % kRpm, row / kRpm);
}
std::string SavedRows(int first, int last) {
    std::string rows = kSavedHead;
    for (int row = first; row <= last; ++row) rows += SavedRow(row);
    return rows;
}

std::wstring TimeText(int hundredths) {
    wchar_t text[32];
    const int seconds = hundredths / 100;
    if (seconds >= 3600) {
        std::swprintf(text, 32, L"%d:%02d:%02d.%02d", seconds / 3600, seconds / 60 % 60, seconds % 60,
                      hundredths % 100);
    } else if (seconds >= 60) {
        std::swprintf(text, 32, L"%d:%02d.%02d", seconds / 60, seconds % 60, hundredths % 100);
    } else {
        std::swprintf(text, 32, L"%d.%02d", seconds, hundredths % 100);
    }
    return text;
}

std::wstring TableOfRow(int row) {
    return L"Name\tUnit\t" + TimeText(TimeOf(row)) + L"\r\n001-1\t/min\t" + std::to_wstring(row % kRpm) +
           L"\r\n001-2\t\u00B0"
           L"C\t90\r\n001-3\tkm/h\t" +
           std::to_wstring(row / kRpm) + L"\r\n001-4\tl/h\t4.2\r\n";
}

class LongDrive : public LookingBack {
protected:
    // The row that a table is of.
    static int RowOf(const std::wstring& table) {
        const auto numberAfter = [&](std::wstring_view name) {
            const std::size_t place = table.find(name);
            return place == std::wstring::npos ? 0 : std::stoi(table.substr(place + name.size()));
        };
        return numberAfter(L"km/h\t") * kRpm + numberAfter(L"/min\t");
    }

    // Plays the log up to the slow rows, minimised, so that nothing is drawn. It takes as long as it takes,
    // while the time of the log moves on.
    void PlayTheFastRows() {
        Start();
        for (int press = 0; press < 3; ++press) main.Click(IDC_REPLAY_FASTER);
        ASSERT_EQ(main.Text(IDC_REPLAY_SPEED), L"8x");
        Load(WriteLog("x.csv", LongLog()));
        main.Post(WM_SYSCOMMAND, SC_MINIMIZE);
        const auto elapsed = [this] { return 100 * _wtof(main.Text(IDC_ELAPSED).c_str()); };
        for (double now = elapsed(); now < TimeOf(FastRows()); now = elapsed()) {
            ::Sleep(200);  // a question costs the program as much as a row
            ASSERT_TRUE(Becomes([&] { return elapsed() > now; }, true)) << now;
        }
        main.Post(WM_SYSCOMMAND, SC_RESTORE);
        ASSERT_TRUE(Becomes([this] { return ::IsIconic(main.Get()) != FALSE; }, false));
    }

    void ExpectTheNewestAndThatItIsFollowed() {
        const std::wstring table = TableOf(history);
        const int row = RowOf(table);
        EXPECT_GT(row, FastRows());
        EXPECT_EQ(table, TableOfRow(row));
        EXPECT_TRUE(Becomes([&] { return RowOf(TableOf(history)) > row; }, true));
    }

    void ExpectTheFirst() {
        const int newest = RowOf(TableOf(history));
        Key(VK_HOME);
        ClickPlot(0);
        // A column holds more than one sample.
        PressHere(Ctrl(VK_LEFT), 10);
        EXPECT_EQ(TableOf(history), TableOfRow(FirstKept(newest)));
    }

    // From everything to ten samples about the middle.
    void ExpectTenSamplesAfterZoomingIn() {
        PressHere(Ctrl('0'));
        ClickPlot(HistoryPlot(history).Columns() / 2);
        const std::wstring table = TableOf(history);
        const int row = RowOf(table);
        EXPECT_EQ(table, TableOfRow(row));
        EXPECT_GT(row, FastRows() / 3);
        EXPECT_LT(row, FastRows());
        PressHere(Ctrl(VK_OEM_PLUS), 40);
        EXPECT_EQ(TableOf(history), table);
        const std::string saved = Saved("ten.csv");
        const auto samples = static_cast<int>(std::ranges::count(saved, '\n')) - 1;
        EXPECT_TRUE(samples == 9 || samples == 10) << saved;
        EXPECT_NE(saved.find(SavedRow(row)), std::string::npos) << saved;
    }

    // What the window saves, which keeps nobody waiting.
    std::string Saved(const char* name) {
        const std::filesystem::path path = session.Folder() / name;
        AskForSamples(path);
        AnswerWatch watch(main.Get());
        EXPECT_TRUE(IsThere(path));
        EXPECT_TRUE(AnsweredPromptly(watch));
        return BytesOf(path);
    }
};

TEST_F(LongDrive, IsThereWithEverySampleThatIsKeptWhileItGoesOn) {
    PlayTheFastRows();
    ASSERT_FALSE(HasFatalFailure());
    AnswerWatch watch(main.Get());
    Open();
    ExpectTheNewestAndThatItIsFollowed();
    ExpectTheFirst();
    EXPECT_TRUE(AnsweredPromptly(watch));
    ExpectTenSamplesAfterZoomingIn();

    Key(VK_RETURN);
    Key(VK_END);
    ExpectTheNewestAndThatItIsFollowed();
    PressHere(Ctrl('0'));
    const int before = RowOf(TableOf(history));
    const std::string saved = Saved("all.csv");
    const auto rows = static_cast<int>(std::ranges::count(saved, '\n')) - 1;
    const int first = FirstKept(before);
    EXPECT_GE(first + rows - 1, before);
    EXPECT_TRUE(saved == SavedRows(first, first + rows - 1))
        << saved.substr(0, 200) << "..." << saved.substr(saved.size() - 200);
    EXPECT_TRUE(main.IsEnabled(IDC_STOP)) << "the log was long enough";
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test
