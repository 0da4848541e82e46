// Lets the user choose a colour.

#include "OrvUiPickers.h"

#include "base/OutOfMemory.h"
#include "instruments/HostCalls.h"
#include "pickers/ColorDialog.h"

using instruments::HostCall;

int keledSetColorDialogTrueColor(KelCmColor& color, bool byReference, const KelCmColor& current, int offered) {
    return framework::answerOr(0, [&] {
        HostCall call("keledSetColorDialogTrueColor", color, byReference, current, offered);
        if (call.fault())
            return call.answer(0);
        framework::ColorDialog dialog(current, pickers::colorParts(offered, byReference));
        if (dialog.DoModal() != IDOK)
            return call.answer(0);
        color = dialog.color();
        call.out("color", color);
        return call.answer(kColorChosen);
    });
}
