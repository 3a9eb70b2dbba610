// One part of a frame read and set alone, for windows and views.
#pragma once

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/ui/accessors.h"
#include "VELTRuntime/values/boxing.h"

/// Defines VELT_<CLASS>_X, _Y, _WIDTH and _HEIGHT over VELT_<CLASS>_FRAME. A part is set to a whole number: fractions
/// are lost, as programs expect. nil has the zero rectangle.
#define VELT_FRAME_PART(cls, MEMBER, part, setFrame)                                                                   \
    id VELT_##cls##_##MEMBER(const id& receiver) {                                                                     \
        velt::requireMainThread("VELT_" #cls "_" #MEMBER);                                                             \
        return VELT_ID(VELT_CNSRECT(VELT_##cls##_FRAME(receiver)).part);                                               \
    }                                                                                                                  \
    id VELT_##cls##_##MEMBER(const id& receiver, const id& value) {                                                    \
        velt::requireMainThread("VELT_" #cls "_" #MEMBER);                                                             \
        const auto whole = static_cast<double>(VELT_CBYTE(value));                                                     \
        NSRect frame = VELT_CNSRECT(VELT_##cls##_FRAME(receiver));                                                     \
        frame.part = whole;                                                                                            \
        setFrame(receiver, frame);                                                                                     \
        return nil;                                                                                                    \
    }
#define VELT_FRAME_PARTS(cls, setFrame)                                                                                \
    VELT_FRAME_PART(cls, X, origin.x, setFrame)                                                                        \
    VELT_FRAME_PART(cls, Y, origin.y, setFrame)                                                                        \
    VELT_FRAME_PART(cls, WIDTH, size.width, setFrame)                                                                  \
    VELT_FRAME_PART(cls, HEIGHT, size.height, setFrame)
