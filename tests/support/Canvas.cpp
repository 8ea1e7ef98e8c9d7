#include "tests/support/Canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace plotvane::test {

namespace {

std::filesystem::path PictureFile() {
    wchar_t program[MAX_PATH]{};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    const auto folder = std::filesystem::path{program}.parent_path() / "failed";
    std::filesystem::create_directories(folder);

    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string{test->test_suite_name()} + "." + test->name() + ".bmp";
    std::replace(name.begin(), name.end(), '/', '-');  // parameterised tests have '/' in their names
    return folder / name;
}

void SaveBmp(const Picture& picture, const std::filesystem::path& file) {
    std::vector<std::uint32_t> pixels(picture.Pixels().begin(), picture.Pixels().end());
    for (auto& pixel : pixels) pixel |= 0xFF000000;  // opaque: viewers take the unused byte for alpha
    const std::size_t size = pixels.size() * sizeof pixels[0];
    BITMAPINFOHEADER info{};
    info.biSize = sizeof info;
    info.biWidth = picture.Width();
    info.biHeight = -picture.Height();  // negative: rows from the top
    info.biPlanes = 1;
    info.biBitCount = 32;
    info.biCompression = BI_RGB;
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42;  // "BM"
    header.bfOffBits = sizeof header + sizeof info;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(size);

    std::ofstream out{file, std::ios::binary};
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(reinterpret_cast<const char*>(&info), sizeof info);
    out.write(reinterpret_cast<const char*>(pixels.data()), static_cast<std::streamsize>(size));
}

}  // namespace

Canvas::Canvas(int width, int height) : m_picture(width, height) {
    EXPECT_TRUE(m_picture) << "cannot create a canvas of " << width << " x " << height;
    const auto pixels = m_picture.Pixels();
    std::fill(pixels.begin(), pixels.end(), kUntouched);
}

Canvas::~Canvas() {
    if (testing::Test::HasFailure() && m_picture) SaveBmp(m_picture, PictureFile());
}

COLORREF Canvas::At(int x, int y) const {
    if (x < 0 || x >= m_picture.Width() || y < 0 || y >= m_picture.Height()) {
        ADD_FAILURE() << "(" << x << ", " << y << ") is outside the canvas";
        return kUntouched;
    }
    const std::uint32_t pixel =
        m_picture.Pixels()[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_picture.Width()) +
                           static_cast<std::size_t>(x)];
    if (pixel == kUntouched) return kUntouched;
    // From 0x00RRGGBB, without the unused byte, because block transfers copy that from their source.
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

}  // namespace plotvane::test
