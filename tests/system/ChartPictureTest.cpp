// The chart as a picture, on the clipboard and in a file: what the window shows at that moment.
#include <cmath>

#include "tests/support/PngReader.h"
#include "tests/support/system/KeyTest.h"

namespace plotvane::test {
namespace {

constexpr long kRows = 20;

// Rows from the top, each pixel 0x00BBGGRR, as the screen has them.
ScreenPicture PictureOnClipboard() {
    ScreenPicture picture;
    if (!::OpenClipboard(nullptr)) return picture;
    if (const HANDLE data = ::GetClipboardData(CF_DIB)) {
        const auto* const head = static_cast<const BITMAPINFOHEADER*>(::GlobalLock(data));
        const auto* const rows = reinterpret_cast<const RGBQUAD*>(head + 1);
        if (head->biBitCount == 32 && head->biCompression == BI_RGB && head->biHeight > 0) {
            picture.width = head->biWidth;
            picture.height = head->biHeight;
            for (int y = picture.height - 1; y >= 0; --y) {
                for (int x = 0; x < picture.width; ++x) {
                    const RGBQUAD& pixel = rows[y * picture.width + x];
                    picture.pixels.push_back(RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue));
                }
            }
        }
        ::GlobalUnlock(data);
    }
    ::CloseClipboard();
    return picture;
}

class ChartPicture : public KeyTest {
protected:
    // Some records, and then a chart that stands still.
    void HoldWithTraces() {
        EnterWithKeyboard(ProgramState::ReplayHeld);
        if (HasFatalFailure()) return;
        const auto elapsed = [this] { return std::stod(main.Text(IDC_ELAPSED)); };
        const double before = elapsed();
        for (int row = 0; row < kRows; ++row) PressKey({VK_F8});
        ASSERT_TRUE(Becomes([&] { return std::lround((elapsed() - before) / 0.05); }, kRows));
        ASSERT_TRUE(HandlesAll());
        shown = PictureOf(main.Control(IDC_CHART).ClientScreenRect());
        ASSERT_GT(shown.Count(0x0000FF), 20) << "there are traces";
    }
    // What a box has covered is painted a moment after the box has gone.
    ::testing::AssertionResult StillShowsIt() {
        const auto isShown = [this] {
            return PictureOf(main.Control(IDC_CHART).ClientScreenRect()).pixels == shown.pixels;
        };
        return Becomes(isShown, true) << ", so the chart has changed";
    }
    void SaveAs(const std::filesystem::path& path) {
        PressKey(Ctrl('S'));
        const RemoteWindow dialog = WindowCalled(kSaveTitle);
        Type(dialog, path);
        dialog.PostClick(IDOK);
    }
    // Compares a file with what the chart shows. The program has it to itself until it is on the disk.
    void ExpectPicture(const std::filesystem::path& path) {
        std::string bytes;
        ASSERT_TRUE(Becomes([&] { return (bytes = BytesOf(path)).empty(); }, false));
        const PngReader read(std::move(bytes));
        ASSERT_EQ(read.pixels.size(), shown.pixels.size());
        EXPECT_EQ(static_cast<int>(read.width), shown.width);
        int different = 0;
        for (std::size_t i = 0; i < read.pixels.size(); ++i) {
            const std::uint32_t rgb = read.pixels[i];
            if (RGB(rgb >> 16U, rgb >> 8U, rgb) != shown.pixels[i]) ++different;
        }
        EXPECT_EQ(different, 0);
    }
    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(session.Folder()))
            if (!entry.is_directory()) names.push_back(entry.path().filename().string());
        return names;
    }

    ScreenPicture shown;
};

TEST_F(ChartPicture, OnTheClipboardIsTheWindowsPixelForPixel) {
    HoldWithTraces();
    ASSERT_FALSE(HasFatalFailure());
    const DWORD before = ::GetClipboardSequenceNumber();
    PressKey(Ctrl('C'));
    ASSERT_TRUE(Becomes([&] { return ::GetClipboardSequenceNumber() != before; }, true));
    ASSERT_TRUE(Becomes([] { return PictureOnClipboard().pixels.empty(); }, false));
    const ScreenPicture copied = PictureOnClipboard();
    EXPECT_EQ(copied.width, shown.width);
    EXPECT_EQ(copied.height, shown.height);
    EXPECT_TRUE(copied.pixels == shown.pixels);
    EXPECT_TRUE(StillShowsIt());
}

TEST_F(ChartPicture, IsSavedUnderAnyName) {
    HoldWithTraces();
    ASSERT_FALSE(HasFatalFailure());
    const auto path = session.Folder() / L"Pr\u00FCfung \u2013 \u0447\u0430\u0440\u0442 \u56F3.png";
    SaveAs(path);
    ASSERT_TRUE(Becomes([&] { return CanBeRead(path); }, true));
    TakeKeyboard();
    ExpectPicture(path);
    EXPECT_TRUE(StillShowsIt());
    EXPECT_EQ(OpenWindows(), 1u);
}

TEST_F(ChartPicture, GetsItsExtensionWhereNoneIsTyped) {
    HoldWithTraces();
    ASSERT_FALSE(HasFatalFailure());
    SaveAs(session.Folder() / "drive");
    ASSERT_TRUE(Becomes([&] { return CanBeRead(session.Folder() / "drive.png"); }, true));
    ExpectPicture(session.Folder() / "drive.png");
}

TEST_F(ChartPicture, ThatCannotBeWrittenIsToldAndLeavesNothing) {
    HoldWithTraces();
    ASSERT_FALSE(HasFatalFailure());
    const auto path = session.Folder() / "kept.png";
    WriteBytes(path, "kept");
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    const auto before = FilesInFolder();
    SaveAs(path);
    // Windows asks whether to replace it; some systems refuse there and then, in a box of their own.
    const RemoteWindow question = session.DialogWith(IDYES);
    question.PostClick(IDYES);
    ASSERT_TRUE(Becomes([&] { return question.Exists(); }, false));
    ConfirmMessage(L"Sorry, the picture couldn't be saved to disk", L"Error");
    EXPECT_EQ(BytesOf(path), "kept");
    EXPECT_EQ(FilesInFolder(), before);
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(StillShowsIt());
}

TEST_F(ChartPicture, ThatIsNotWantedIsNotWritten) {
    HoldWithTraces();
    ASSERT_FALSE(HasFatalFailure());
    const auto before = FilesInFolder();
    PressKey(Ctrl('S'));
    Cancel(WindowCalled(kSaveTitle));
    EXPECT_EQ(FilesInFolder(), before);
    EXPECT_TRUE(ComesBackToLife());
}

}  // namespace
}  // namespace plotvane::test
