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

TEST(MemoryDc, DrawsTheSameOnAKeptSurface) {
    MemorySurface surface;
    Canvas canvas{20, 20};
    for (const CRect& rect :
         {CRect{5, 6, 15, 12}, CRect{6, 7, 16, 13}, CRect{0, 0, 20, 20}, CRect{2, 2, 4, 4}}) {
        canvas.Dc().FillSolidRect(CRect{0, 0, 20, 20}, kInk);
        {
            CMemoryDC memory{canvas.Dc(), rect, surface};
            memory.FillSolidRect(rect, kGround);
            ::SetPixelV(memory, rect.left, rect.top, RGB(1, 2, 3));
            EXPECT_EQ(canvas.At(rect.left, rect.top), kInk);
        }
        EXPECT_EQ(canvas.At(rect.left, rect.top), RGB(1, 2, 3));
        EXPECT_EQ(canvas.At(rect.left + 1, rect.top), kGround);
        EXPECT_EQ(canvas.At(rect.right - 1, rect.bottom - 1), kGround);
        if (rect.left > 0) {
            EXPECT_EQ(canvas.At(rect.left - 1, rect.top), kInk);
            EXPECT_EQ(canvas.At(rect.right, rect.bottom), kInk);
        }
    }
}

TEST(MemoryDc, AKeptSurfaceHoldsTheLastDrawing) {
    MemorySurface surface;
    Canvas canvas{20, 20};
    const CRect rect{0, 0, 20, 20};
    {
        CMemoryDC memory{canvas.Dc(), rect, surface};
        memory.FillSolidRect(rect, kGround);
    }
    canvas.Dc().FillSolidRect(rect, kInk);
    {
        CMemoryDC memory{canvas.Dc(), rect, surface};
        ::SetPixelV(memory, 3, 4, kInk);
    }
    EXPECT_EQ(canvas.At(0, 0), kGround);
    EXPECT_EQ(canvas.At(3, 4), kInk);
}

TEST(MemoryDc, AKeptSurfaceIsCreatedOnce) {
    const int before = LivingGdiObjects();
    {
        MemorySurface surface;
        Canvas canvas{20, 20};
        const CRect rect{0, 0, 20, 20};
        const int withCanvas = LivingGdiObjects();
        HDC dc = nullptr;
        for (int round = 0; round < 3; ++round) {
            const CMemoryDC memory{canvas.Dc(), rect, surface};
            if (round == 0) dc = memory.GetSafeHdc();
            EXPECT_EQ(memory.GetSafeHdc(), dc);
            EXPECT_EQ(LivingGdiObjects(), withCanvas + 2);
        }
        EXPECT_EQ(LivingGdiObjects(), withCanvas + 2);
    }
    EXPECT_EQ(LivingGdiObjects(), before);
}

TEST(MemoryDc, ASurfaceKeepsItsFirstFontUntilItIsCreatedAgain) {
    const CFont font{
        ::CreateFontW(20, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, ANSI_CHARSET, 0, 0, 0, 0, L"Arial")};
    MemorySurface surface;
    Canvas canvas{20, 20};
    const auto fontOn = [&](const CRect& rect) {
        const CMemoryDC memory{canvas.Dc(), rect, surface};
        return ::GetCurrentObject(memory, OBJ_FONT);
    };
    surface.KeepFont(font);  // no effect: there is no device context yet
    const HGDIOBJ first = fontOn({0, 0, 20, 20});
    EXPECT_NE(first, font.Get());
    surface.KeepFont(font);
    surface.KeepFont(font);
    EXPECT_EQ(fontOn({0, 0, 20, 20}), font.Get());
    EXPECT_EQ(fontOn({0, 0, 10, 20}), first);
}

TEST(MemoryDc, AReleasedSurfaceHoldsNothingAndCanBeUsedAgain) {
    MemorySurface surface;
    Canvas canvas{20, 20};
    const int before = LivingGdiObjects();
    const CFont font{
        ::CreateFontW(20, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, ANSI_CHARSET, 0, 0, 0, 0, L"Arial")};
    for (int round = 0; round < 2; ++round) {
        {
            CMemoryDC memory{canvas.Dc(), CRect{0, 0, 20, 20}, surface};
            surface.KeepFont(font);
            memory.FillSolidRect(CRect{0, 0, 20, 20}, kGround + static_cast<COLORREF>(round));
        }
        EXPECT_EQ(canvas.At(3, 3), kGround + static_cast<COLORREF>(round));
        EXPECT_EQ(LivingGdiObjects(), before + 3);
        surface.Release();
        EXPECT_EQ(LivingGdiObjects(), before + 1);
    }
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
