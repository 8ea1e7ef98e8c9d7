#include "meter/MemoryDc.h"

#include <gtest/gtest.h>

#include "tests/support/Canvas.h"

namespace plotvane {
namespace {

using test::Canvas;
using test::kUntouched;

constexpr COLORREF kGround = RGB(10, 20, 30);
constexpr COLORREF kInk = RGB(200, 100, 50);

TEST(MemoryDc, ReachesTheTargetInOnePieceWhenDestroyed) {
    Canvas canvas{20, 20};
    canvas.Dc().SetBkColor(kGround);
    const CRect rect{0, 0, 20, 20};
    {
        CMemoryDC memory{canvas.Dc(), &rect};
        EXPECT_TRUE(memory.IsOffScreen());
        EXPECT_NE(memory.GetSafeHdc(), canvas.Dc().GetSafeHdc());
        ::SetPixelV(memory, 3, 4, kInk);
        EXPECT_EQ(canvas.At(3, 4), kUntouched);
        EXPECT_EQ(canvas.At(0, 0), kUntouched);
    }
    EXPECT_EQ(canvas.At(3, 4), kInk);
    EXPECT_EQ(canvas.At(0, 0), kGround);
    EXPECT_EQ(canvas.At(19, 19), kGround);
}

TEST(MemoryDc, DrawsAtTheTargetsCoordinatesAndNowhereElse) {
    Canvas canvas{20, 20};
    canvas.Dc().SetBkColor(kGround);
    const CRect rect{5, 6, 15, 12};
    {
        CMemoryDC memory{canvas.Dc(), &rect};
        ::SetPixelV(memory, 5, 6, kInk);
        ::SetPixelV(memory, 14, 11, kInk);
        ::SetPixelV(memory, 4, 6, kInk);    // left of the rectangle
        ::SetPixelV(memory, 15, 11, kInk);  // right of it
    }
    EXPECT_EQ(canvas.At(5, 6), kInk);
    EXPECT_EQ(canvas.At(14, 11), kInk);
    EXPECT_EQ(canvas.At(14, 6), kGround);
    EXPECT_EQ(canvas.At(4, 6), kUntouched);
    EXPECT_EQ(canvas.At(15, 11), kUntouched);
    EXPECT_EQ(canvas.At(5, 12), kUntouched);
}

TEST(MemoryDc, DrawsOnAKeptPictureAndCopiesOnlyTheRectangles) {
    const Picture kept{20, 20};
    Canvas canvas{20, 20};
    const CRect shown[] = {{5, 6, 15, 12}, {2, 15, 4, 17}};
    {
        CMemoryDC memory{canvas.Dc(), kept, shown};
        EXPECT_TRUE(memory.IsOffScreen());
        EXPECT_EQ(memory.GetSafeHdc(), kept.Dc());
        memory.FillSolidRect(CRect{0, 0, 20, 20}, kGround);
        ::SetPixelV(memory, 5, 6, kInk);
        EXPECT_EQ(canvas.At(5, 6), kUntouched);
    }
    EXPECT_EQ(canvas.At(5, 6), kInk);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            if (x == 5 && y == 6) continue;
            const bool isShown = shown[0].Contains({x, y}) || shown[1].Contains({x, y});
            EXPECT_EQ(canvas.At(x, y), isShown ? kGround : kUntouched) << x << ", " << y;
        }
    }
}

TEST(MemoryDc, AKeptPictureHoldsTheLastDrawing) {
    const Picture kept{20, 20};
    Canvas canvas{20, 20};
    const CRect rect{0, 0, 20, 20};
    const auto memory = [&] { return CMemoryDC{canvas.Dc(), kept, {&rect, 1}}; };
    memory().FillSolidRect(rect, kGround);
    canvas.Dc().FillSolidRect(rect, kInk);
    ::SetPixelV(memory(), 3, 4, kInk);
    EXPECT_EQ(canvas.At(0, 0), kGround);
    EXPECT_EQ(canvas.At(3, 4), kInk);
}

TEST(MemoryDc, MakesNothingForAKeptPicture) {
    const Picture kept{20, 20};
    Canvas canvas{20, 20};
    const CRect rect{0, 0, 20, 20};
    const int objects = LivingGdiObjects();
    const CMemoryDC memory{canvas.Dc(), kept, {&rect, 1}};
    EXPECT_EQ(LivingGdiObjects(), objects);
}

TEST(MemoryDc, CoversTheClipBoxWithoutARectangle) {
    Canvas canvas{20, 20};
    canvas.Dc().SetBkColor(kGround);
    const CRgn clip{::CreateRectRgn(2, 3, 8, 9)};
    canvas.Dc().SelectClipRgn(clip.Get());
    { const CMemoryDC memory{canvas.Dc()}; }
    canvas.Dc().SelectClipRgn(nullptr);
    EXPECT_EQ(canvas.At(2, 3), kGround);
    EXPECT_EQ(canvas.At(7, 8), kGround);
    EXPECT_EQ(canvas.At(8, 8), kUntouched);
    EXPECT_EQ(canvas.At(1, 3), kUntouched);
}

TEST(MemoryDc, FollowsATargetWhoseOriginIsMoved) {
    Canvas canvas{30, 30};
    canvas.Dc().SetBkColor(kGround);
    ::SetWindowOrgEx(canvas.Dc(), 5, 7, nullptr);
    const CRect rect{15, 17, 25, 27};  // on the canvas from (10, 10) to (20, 20)
    {
        CMemoryDC memory{canvas.Dc(), &rect};
        ::SetPixelV(memory, 16, 18, kInk);
    }
    EXPECT_EQ(canvas.At(10, 10), kGround);
    EXPECT_EQ(canvas.At(19, 19), kGround);
    EXPECT_EQ(canvas.At(11, 11), kInk);
    EXPECT_EQ(canvas.At(9, 10), kUntouched);
    EXPECT_EQ(canvas.At(20, 19), kUntouched);
}

TEST(MemoryDc, UsesTheMappingModeOfTheTarget) {
    Canvas canvas{40, 40};
    canvas.Dc().SetBkColor(kGround);
    ::SetMapMode(canvas.Dc(), MM_LOMETRIC);  // y points upwards
    const RECT device{10, 10, 30, 30};
    CRect logical{device};
    ::DPtoLP(canvas.Dc(), reinterpret_cast<POINT*>(static_cast<RECT*>(&logical)), 2);
    ASSERT_LT(logical.bottom, logical.top);
    {
        const CMemoryDC memory{canvas.Dc(), &logical};
        EXPECT_EQ(::GetMapMode(memory), MM_LOMETRIC);
    }
    EXPECT_EQ(canvas.At(20, 20), kGround);
    EXPECT_EQ(canvas.At(5, 5), kUntouched);
    EXPECT_EQ(canvas.At(35, 35), kUntouched);
}

TEST(MemoryDc, DrawsStraightOnATargetThatIsNotAScreen) {
    const HDC metafile = ::CreateMetaFileW(nullptr);
    ASSERT_NE(metafile, nullptr);
    ASSERT_NE(::GetDeviceCaps(metafile, TECHNOLOGY), DT_RASDISPLAY);
    const int objects = LivingGdiObjects();
    {
        CDC target{metafile};
        const CRect rect{0, 0, 20, 20};
        const CMemoryDC memory{target, &rect};
        EXPECT_FALSE(memory.IsOffScreen());
        EXPECT_EQ(memory.GetSafeHdc(), metafile);
        EXPECT_EQ(LivingGdiObjects(), objects);
    }
    // The target's device context was only borrowed, so it still exists.
    EXPECT_EQ(::GetObjectType(metafile), static_cast<DWORD>(OBJ_METADC));
    ::DeleteMetaFile(::CloseMetaFile(metafile));
}

TEST(MemoryDc, AcceptsAnEmptyRectangle) {
    Canvas canvas{10, 10};
    const CRect nothing{0, 0, 0, 0};
    { const CMemoryDC memory{canvas.Dc(), &nothing}; }
    EXPECT_EQ(canvas.At(0, 0), kUntouched);
}

TEST(MemoryDc, ReleasesAllItsObjects) {
    Canvas canvas{10, 10};
    const int objects = LivingGdiObjects();
    for (int i = 0; i < 1000; ++i) const CMemoryDC memory{canvas.Dc()};
    EXPECT_EQ(LivingGdiObjects(), objects);
}

}  // namespace
}  // namespace plotvane
