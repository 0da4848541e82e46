// Defines what KELRT_DECLARE_CLASS declares, for the host's own classes.
#pragma once

#include "KelRtObject.h"

/// Defines the record of a class whose base is another class of the mechanism. Used once per class, in its own source.
#define KELRT_DEFINE_CLASS(ClassName, BaseName)                                                                        \
    KelRtClass* ClassName::desc() {                                                                                    \
        static KelRtClass record(L## #ClassName, BaseName::desc());                                                    \
        return &record;                                                                                                \
    }                                                                                                                  \
    KelRtClass* ClassName::isA() const {                                                                               \
        return desc();                                                                                                 \
    }
