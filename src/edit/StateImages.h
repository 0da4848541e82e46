// The images of the grid: one list for the whole process, and how they are drawn in great numbers.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

/// Loads the images of the resource module, unless they are loaded.
void loadStateImages();
/// Images of 16 by 16 pixels, and larger ones on a display that is scaled to 150 % or more; empty until they have been
/// loaded, and there until the process ends.
extern CImageList g_stateImages;

/// Makes a list of the images of the narrow columns' headings, by GridColumnShape::headingImage, as large as those of
/// the grid.
/// @return false when the system has no room for it; the list may then be there, but holds no image
bool loadHeadingImages(CImageList& list);

/// The image of a property's value, loaded if need be; see stateImageNumber.
/// @param tileMode whether the model tab is active; makes no difference, on purpose
int stateImageIndex(int kind, int value, bool tileMode);

/// Draws images of a list as ILD_TRANSPARENT does where the ground has the colour of windows. A page of the grid shows
/// hundreds of them, and the system takes ten times as long to lay one over a ground as to copy it.
class PaintedImages {
  public:
    /// Paints all images of the list, which has to outlive this object.
    void paint(CImageList& images, CDC& dc);
    void draw(CDC& dc, int image, CPoint place);

  private:
    CImageList* m_images = nullptr;
    CBitmap m_strip; // before the context, which must let go of it first; empty when the system had no room for it
    CDC m_memory;
    COLORREF m_ground = 0;
    int m_side = 0;
};
