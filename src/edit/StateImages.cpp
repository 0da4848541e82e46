#include "StateImages.h"

#include "CResourceScope.h"
#include "StateImageNumbers.h"
#include "resource.h"

CImageList g_stateImages;

namespace {

/// The images as they are drawn for one scaling of the display.
struct ImageSet {
    int side; ///< in pixels
    UINT images;
    UINT masks;
    UINT headings;
};

constexpr ImageSet kSets[] = {
    {16, IDB_LSTATE_GRID_IMAGES, IDB_LSTATE_GRID_MASK, IDB_LSTATE_GRID_HEADINGS},
    {24, IDB_LSTATE_GRID_IMAGES_24, IDB_LSTATE_GRID_MASK_24, IDB_LSTATE_GRID_HEADINGS_24},
    {32, IDB_LSTATE_GRID_IMAGES_32, IDB_LSTATE_GRID_MASK_32, IDB_LSTATE_GRID_HEADINGS_32},
};

/// The largest set that isn't larger than the display's scaling asks for.
const ImageSet& setForDisplay() {
    const int wanted = ::MulDiv(kSets[0].side, static_cast<int>(::GetDpiForSystem()), USER_DEFAULT_SCREEN_DPI);
    const ImageSet* chosen = kSets;
    for (const ImageSet& set : kSets)
        if (set.side <= wanted)
            chosen = &set;
    return *chosen;
}

bool loaded = false;

} // namespace

void loadStateImages() {
    if (loaded)
        return;
    const CResourceScope scope;
    const ImageSet& set = setForDisplay();
    g_stateImages.Create(set.side, set.side, ILC_COLOR32 | ILC_MASK, 0, 1);
    CBitmap images;
    CBitmap masks;
    if (images.LoadBitmap(set.images) && masks.LoadBitmap(set.masks))
        g_stateImages.Add(&images, &masks);
    // The grid draws nothing with an overlay; the number is kept for others that share the list.
    constexpr int kOverlayImage = 14;
    constexpr int kOverlayNumber = 40;
    g_stateImages.SetOverlayImage(kOverlayImage, kOverlayNumber);
    loaded = true;
}

bool loadHeadingImages(CImageList& list) {
    const CResourceScope scope;
    const ImageSet& set = setForDisplay();
    CBitmap images;
    return images.LoadBitmap(set.headings) && list.Create(set.side, set.side, ILC_COLOR32, 0, 1) &&
           list.Add(&images, nullptr) >= 0;
}

int stateImageIndex(int kind, int value, bool) {
    loadStateImages();
    return stateImageNumber(kind, value);
}

void PaintedImages::paint(CImageList& images, CDC& dc) {
    m_images = &images;
    IMAGEINFO first = {};
    if (!images.GetImageInfo(0, &first))
        return;
    m_side = first.rcImage.bottom - first.rcImage.top;
    m_ground = ::GetSysColor(COLOR_WINDOW);
    const int count = images.GetImageCount();
    if (!m_memory.CreateCompatibleDC(&dc) || !m_strip.CreateCompatibleBitmap(&dc, count * m_side, m_side))
        return;
    m_memory.SelectObject(&m_strip);
    const CRect all(0, 0, count * m_side, m_side);
    ::FillRect(m_memory.m_hDC, &all, ::GetSysColorBrush(COLOR_WINDOW));
    for (int image = 0; image < count; ++image)
        images.Draw(&m_memory, image, CPoint(image * m_side, 0), ILD_TRANSPARENT);
}

void PaintedImages::draw(CDC& dc, int image, CPoint place) {
    if (m_strip.GetSafeHandle() && m_ground == ::GetSysColor(COLOR_WINDOW))
        dc.BitBlt(place.x, place.y, m_side, m_side, &m_memory, image * m_side, 0, SRCCOPY);
    else if (m_images)
        m_images->Draw(&dc, image, place, ILD_TRANSPARENT);
}
