// The images of the grid: one list for the whole process.
#pragma once

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
