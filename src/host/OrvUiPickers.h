// The host's dialogs in which the user picks a file or a property. All are modal over the active window. Windows tier;
// the flags are portable.
#pragma once

#include "KelCmColor.h"
#include "KelDbObjectId.h"
#include "KelExport.h"
#include "ResultBuffer.h"

/// Lets the user choose a file, or type the address of a remote one, which CProxyInet transfers.
/// @param title         the dialog's title
/// @param defaultName   the name to begin with, or null
/// @param extensions    extensions separated by semicolons; the first is added to a name that is typed without one to
///                      save a file. None, or null: all files are shown, and nothing is added.
/// @param dialogKey     the key under which the host keeps the dialog's last folder; null or empty keeps none
/// @param flags         0 opens an existing file, 1 saves
/// @param result        receives a chain whose first node is a string: the path, or the address as it was typed. The
///                      caller releases it with kelutRelRb.
/// @return kResultNormal when a file was chosen; otherwise `*result` is null
KELUI_API int keledGetFileNavDialog(const wchar_t* title, const wchar_t* defaultName, const wchar_t* extensions,
                                    const wchar_t* dialogKey, int flags, ResultBuffer** result);

/// What the colour dialog offers, combined with |; all three make 7. Without either tab it offers the palette.
inline constexpr int kOrvUiColorPalette = 1;      ///< the tab with the 255 colours of the palette
inline constexpr int kOrvUiColorTrueColor = 2;    ///< the tab with red, green and blue
inline constexpr int kOrvUiColorSystemDialog = 4; ///< on that tab, the way into the system's own colour dialog

/// The answer of keledSetColorDialogTrueColor when a colour was chosen.
inline constexpr int kColorChosen = 1;

/// Lets the user choose a colour.
/// @param color       receives the chosen colour; a cancelled dialog leaves it as it was
/// @param byReference whether by layer and by block can be chosen, beside the palette
/// @param current     the colour to begin with
/// @param offered     kOrvUiColor flags
/// @return kColorChosen, or 0
KELUI_API int keledSetColorDialogTrueColor(KelCmColor& color, bool byReference, const KelCmColor& current, int offered);

/// Lets the user choose one of the current drawing's linetypes.
/// @param current     the linetype to begin with; may be null
/// @param byReference whether by layer and by block can be chosen; their id is null
/// @param name        receives the linetype's name, which the caller frees with kelutDelBuffer; null when none is
///                    chosen
/// @param chosen      receives its id; a cancelled dialog leaves it as it was
/// @return whether one was chosen
KELUI_API bool keledLinetypeDialog(KelDbObjectId current, bool byReference, wchar_t*& name, KelDbObjectId& chosen);

/// Lets the user choose a lineweight: the drawing's default (-3) or one of the standard widths, in hundredths of a
/// millimetre.
/// @param byReference whether by layer (-1) and by block (-2) can be chosen
/// @param chosen      receives the lineweight; a cancelled dialog leaves it as it was
/// @return whether one was chosen
KELUI_API bool keledLineWeightDialog(int current, bool byReference, int& chosen);

/// Lets the user choose one of the current drawing's plot styles. A drawing with colour-dependent plot styles has none.
/// @param current     the name to begin with, or null
/// @param byReference whether by layer and by block can be chosen
/// @param chosen      receives the name, which the caller frees with kelutDelBuffer; null when none was chosen
/// @return whether one was chosen
KELUI_API bool keledPlotstyleDialog(const wchar_t* current, bool byReference, wchar_t*& chosen);
