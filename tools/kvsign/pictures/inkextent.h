/// @file
/// Where the ink of a record lies.
#ifndef INKEXTENT_H
#define INKEXTENT_H

#include "../padareas.h"

#include <kvsignpadsdk_global.h>

#include <algorithm>

struct InkExtent
{
    int left = 32767, right = -32768, top = 32767, bottom = -32768; ///< raw units, inclusive

    void add(const POINTDATA &point)
    {
        left = std::min<int>(left, point.nX);
        right = std::max<int>(right, point.nX);
        top = std::min<int>(top, point.nY);
        bottom = std::max<int>(bottom, point.nY);
    }

    bool liesOn(const PadModel &model) const
    {
        return left >= model.left && right < model.left + model.width && top >= model.top
            && bottom < model.top + model.height;
    }

    /// The pad with the smallest writing area that holds all of it; without one, the smallest that is large enough.
    const PadModel &smallestPad() const
    {
        for (const PadModel &model : kPadModels) {
            if (liesOn(model))
                return model;
        }
        for (const PadModel &model : kPadModels) {
            if (right < model.left + model.width && bottom < model.top + model.height)
                return model;
        }
        return padModel("R800");
    }
};

#endif
