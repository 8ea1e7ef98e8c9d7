#include "framework/Gdi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>

#include "res/resource.h"
#include "tests/support/Canvas.h"

namespace {

using plotvane::test::Canvas;
using plotvane::test::kUntouched;

TEST(GdiOwner, CountsEveryTypeWhileItLives) {
    const int before = LivingGdiObjects();
    {
        const CPen pen{::CreatePen(PS_SOLID, 1, 0)};
        const CBrush brush{::CreateSolidBrush(0)};
        const CRgn region{::CreateRectRgn(0, 0, 1, 1)};
        const MemoryDc dc{::CreateCompatibleDC(nullptr)};
        EXPECT_EQ(LivingGdiObjects(), before + 4);
    }
    EXPECT_EQ(LivingGdiObjects(), before);
}

TEST(GdiOwner, DeletesItsObject) {
    HPEN handle = nullptr;
    {
        const CPen pen{::CreatePen(PS_SOLID, 1, 0)};
        handle = pen.Get();
        ASSERT_EQ(::GetObjectType(handle), static_cast<DWORD>(OBJ_PEN));
    }
    EXPECT_EQ(::GetObjectType(handle), 0u);
}

TEST(GdiOwner, HandsOverOnMoveAndIsNotCopyable) {
    static_assert(!std::is_copy_constructible_v<CPen> && !std::is_copy_assignable_v<CPen>);
    const int before = CPen::Living();
    {
        CPen first{::CreatePen(PS_SOLID, 1, 0)};
        const HPEN handle = first.Get();
        CPen second{std::move(first)};
        EXPECT_EQ(second.Get(), handle);
        EXPECT_EQ(CPen::Living(), before + 1);

        second = CPen{::CreatePen(PS_SOLID, 2, 0)};
        EXPECT_EQ(::GetObjectType(handle), 0u);
        EXPECT_EQ(CPen::Living(), before + 1);
    }
    EXPECT_EQ(CPen::Living(), before);  // each handle had one owner
}

SIZE SizeOf(HICON icon) {
    ICONINFO parts{};
    if (!::GetIconInfo(icon, &parts)) return {};
    const CBitmap mask{parts.hbmMask};
    const CBitmap colours{parts.hbmColor};
    BITMAP bitmap{};
    ::GetObjectW(colours.Get(), sizeof bitmap, &bitmap);
    return {bitmap.bmWidth, bitmap.bmHeight};
}

// Were it shared, it would have the size that was asked for first.
TEST(LoadIconOf, GivesTheIconInEachSizeThatIsAskedFor) {
    const int before = CIcon::Living();
    {
        const CIcon large = LoadIconOf(IDI_PLOTVANE, 48, 48);
        const CIcon small = LoadIconOf(IDI_PLOTVANE, 16, 16);
        const CIcon again = LoadIconOf(IDI_PLOTVANE, 48, 48);
        EXPECT_EQ(SizeOf(large.Get()).cx, 48);
        EXPECT_EQ(SizeOf(small.Get()).cx, 16);
        EXPECT_EQ(SizeOf(again.Get()).cy, 48);
        EXPECT_NE(large.Get(), again.Get()) << "each has one owner";
        EXPECT_EQ(CIcon::Living(), before + 3);
    }
    EXPECT_EQ(CIcon::Living(), before);
    EXPECT_FALSE(LoadIconOf(9999, 16, 16));
}

TEST(GdiOwner, OfAFailedCallIsEmptyAndUncounted) {
    const int before = CBitmap::Living();
    const CBitmap bitmap{nullptr};
    EXPECT_FALSE(bitmap);
    EXPECT_EQ(CBitmap::Living(), before);
}

TEST(Selected, PutsBackWhatWasThereBefore) {
    Canvas canvas{4, 4};
    const CPen pen{::CreatePen(PS_SOLID, 1, RGB(1, 2, 3))};
    const HGDIOBJ before = ::GetCurrentObject(canvas.Dc(), OBJ_PEN);
    {
        const Selected penInDc{canvas.Dc(), pen};
        EXPECT_EQ(::GetCurrentObject(canvas.Dc(), OBJ_PEN), pen.Get());
    }
    EXPECT_EQ(::GetCurrentObject(canvas.Dc(), OBJ_PEN), before);
}

TEST(Picture, PixelsAreRowsFromTheTopInRedGreenBlue) {
    Picture picture{5, 3};
    ASSERT_TRUE(picture);
    ASSERT_EQ(picture.Pixels().size(), 15u);
    EXPECT_TRUE(std::all_of(picture.Pixels().begin(), picture.Pixels().end(), [](auto p) { return p == 0; }));

    ::SetPixelV(picture.Dc(), 1, 2, RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(picture.Pixels()[2 * 5 + 1], 0x112233u);

    picture.Pixels()[0] = 0x445566;
    EXPECT_EQ(::GetPixel(picture.Dc(), 0, 0), RGB(0x44, 0x55, 0x66));
}

TEST(Picture, WithoutASizeIsEmptyAndHarmless) {
    const int before = LivingGdiObjects();
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {5, -1}, {0, 0}}) {
        const Picture picture{width, height};
        EXPECT_FALSE(picture);
        EXPECT_EQ(picture.Dc(), nullptr);
        EXPECT_TRUE(picture.Pixels().empty());
        EXPECT_EQ(picture.Width(), 0);
        EXPECT_EQ(picture.Height(), 0);
    }
    EXPECT_EQ(LivingGdiObjects(), before);
}

TEST(Picture, TooLargeForMemoryIsEmpty) {
    const int before = LivingGdiObjects();
    {
        const Picture picture{0x7FFFFFFF, 0x7FFFFFFF};
        EXPECT_FALSE(picture);
    }
    EXPECT_EQ(LivingGdiObjects(), before);
}

TEST(Picture, LeavesNothingBehind) {
    const int before = LivingGdiObjects();
    {
        const Picture picture{10, 10};
        EXPECT_EQ(LivingGdiObjects(), before + 2);  // device context and bitmap
    }
    EXPECT_EQ(LivingGdiObjects(), before);
}

TEST(Dc, LineLeavesOutItsLastPixel) {
    Canvas canvas{6, 3};
    const CPen pen{::CreatePen(PS_SOLID, 0, RGB(9, 8, 7))};
    const Selected penInDc{canvas.Dc(), pen};

    canvas.Dc().MoveTo(1, 1);
    canvas.Dc().LineTo(4, 1);

    EXPECT_EQ(canvas.At(0, 1), kUntouched);
    EXPECT_EQ(canvas.At(1, 1), RGB(9, 8, 7));
    EXPECT_EQ(canvas.At(3, 1), RGB(9, 8, 7));
    EXPECT_EQ(canvas.At(4, 1), kUntouched);
}

TEST(Dc, FillsUpToButNotIncludingRightAndBottom) {
    Canvas canvas{4, 4};
    canvas.Dc().FillSolidRect(CRect{1, 1, 3, 3}, RGB(1, 2, 3));
    EXPECT_EQ(canvas.At(0, 0), kUntouched);
    EXPECT_EQ(canvas.At(1, 1), RGB(1, 2, 3));
    EXPECT_EQ(canvas.At(2, 2), RGB(1, 2, 3));
    EXPECT_EQ(canvas.At(3, 3), kUntouched);
}

}  // namespace
