// The colour sample of a grid cell: its pixels, what it asks the host, and that nothing of it is left behind.

#include "ColorSwatch.h"

#include "instruments/HostCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);

class ColorSwatch : public testing::Test {
  protected:
    ColorSwatch() { instruments::watch(true); }
    ~ColorSwatch() override { instruments::watch(false); }

    static KelCmColor indexed(unsigned short index) {
        KelCmColor color;
        EXPECT_EQ(color.setColorIndex(index), Vorn::eOk);
        return color;
    }
    static KelCmColor trueColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
        KelCmColor color;
        EXPECT_EQ(color.setRGB(red, green, blue), Vorn::eOk);
        return color;
    }
    void make(const KelCmColor& color) {
        CClientDC screen(nullptr);
        EXPECT_TRUE(makeColorSwatch(m_bitmap, color, &screen));
    }
    /// All pixels, row by row.
    std::vector<COLORREF> pixels() {
        BITMAP size = {};
        m_bitmap.GetBitmap(&size);
        EXPECT_EQ(size.bmWidth, 12);
        EXPECT_EQ(size.bmHeight, 12);
        CDC context;
        context.CreateCompatibleDC(nullptr);
        CBitmap* before = context.SelectObject(&m_bitmap);
        EXPECT_NE(before, nullptr) << "the bitmap is still selected elsewhere";
        std::vector<COLORREF> found;
        for (int y = 0; y < size.bmHeight; ++y)
            for (int x = 0; x < size.bmWidth; ++x)
                found.push_back(context.GetPixel(x, y));
        context.SelectObject(before);
        return found;
    }
    /// A square of one colour with a black border, one pixel wide.
    static std::vector<COLORREF> square(COLORREF fill) {
        std::vector<COLORREF> expected;
        for (int y = 0; y < 12; ++y)
            for (int x = 0; x < 12; ++x)
                expected.push_back(x == 0 || y == 0 || x == 11 || y == 11 ? kBlack : fill);
        return expected;
    }

    CBitmap m_bitmap;
};

bool lives(HGDIOBJ handle) {
    return ::GetObjectType(handle) != 0;
}

/// Uses up the GDI objects that the system allows, except `left` of them.
class ScarceObjects {
  public:
    explicit ScarceObjects(std::size_t left) {
        constexpr std::size_t more = 200000; // more objects than any system allows
        while (m_taken.size() < more) {
            const HGDIOBJ object = ::CreateSolidBrush(static_cast<COLORREF>(m_taken.size()));
            if (!object)
                break;
            m_taken.push_back(object);
        }
        EXPECT_LT(m_taken.size(), more);
        for (; left > 0 && !m_taken.empty(); --left) {
            ::DeleteObject(m_taken.back());
            m_taken.pop_back();
        }
    }
    ~ScarceObjects() {
        for (const HGDIOBJ object : m_taken)
            ::DeleteObject(object);
    }
    ScarceObjects(const ScarceObjects&) = delete;
    ScarceObjects& operator=(const ScarceObjects&) = delete;

  private:
    std::vector<HGDIOBJ> m_taken;
};

} // namespace

TEST_F(ColorSwatch, IsASquareOfAPaletteColourWithABlackBorder) {
    make(indexed(1));
    EXPECT_EQ(pixels(), square(RGB(255, 0, 0)));
    EXPECT_THAT(instruments::trace(), ElementsAre("keledGetRGB(1) = 255"));
}

TEST_F(ColorSwatch, ByLayerIsWhiteAndAsksNobody) {
    make(indexed(256));
    EXPECT_EQ(pixels(), square(RGB(255, 255, 255)));
    EXPECT_THAT(instruments::trace(), IsEmpty());
}

TEST_F(ColorSwatch, ByBlockAsksTheHost) {
    make(indexed(0));
    EXPECT_THAT(instruments::trace(), ElementsAre("keledGetRGB(0) = 16777215"));
}

TEST_F(ColorSwatch, ATrueColourHasRedInTheLowByte) {
    make(trueColor(255, 0, 0));
    EXPECT_EQ(pixels(), square(0x0000FF));
    make(trueColor(1, 2, 3));
    EXPECT_EQ(pixels(), square(0x030201));
    EXPECT_THAT(instruments::trace(), IsEmpty());
}

TEST_F(ColorSwatch, TakesThePlaceOfABitmapThatWasThere) {
    make(indexed(1));
    const HGDIOBJ first = m_bitmap.GetSafeHandle();
    make(indexed(3));
    EXPECT_EQ(pixels(), square(RGB(0, 255, 0)));
    // The system may use the handle of the deleted object for a new one.
    EXPECT_TRUE(m_bitmap.GetSafeHandle() == first || !lives(first));
}

TEST_F(ColorSwatch, WithoutAContextNothingIsTouched) {
    make(indexed(1));
    const HGDIOBJ before = m_bitmap.GetSafeHandle();
    EXPECT_FALSE(makeColorSwatch(m_bitmap, indexed(3), nullptr));
    EXPECT_EQ(m_bitmap.GetSafeHandle(), before);
    EXPECT_EQ(pixels(), square(RGB(255, 0, 0)));
}

TEST_F(ColorSwatch, NothingIsLeftBehind) {
    // More objects than the system allows.
    for (int i = 0; i < 66000; ++i) {
        CDC context;
        ASSERT_TRUE(context.CreateCompatibleDC(nullptr)) << i;
        ASSERT_TRUE(makeColorSwatch(m_bitmap, indexed(256), &context)) << i;
    }
}

TEST_F(ColorSwatch, AFailureAtAnyStepLeavesTheBitmapEmpty) {
    CClientDC screen(nullptr);
    bool made = false;
    for (std::size_t left = 0; left < 12 && !made; ++left) {
        {
            const ScarceObjects scarce(left);
            made = makeColorSwatch(m_bitmap, indexed(256), &screen);
            EXPECT_EQ(m_bitmap.GetSafeHandle() != nullptr, made) << left;
        }
        EXPECT_FALSE(made && left == 0) << "not even the bitmap had room";
    }
    EXPECT_TRUE(made) << "enough room for all of it";
}
