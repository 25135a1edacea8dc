/// @file
/// Where the ink of a record lies.
#ifndef INKEXTENT_H
#define INKEXTENT_H

#include "modelrows.h"

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

    bool endsOn(const ModelRow &model) const
    {
        return right < model.rawOffsetX + model.rawSpanX && bottom < model.rawOffsetY + model.rawSpanY;
    }
    bool liesOn(const ModelRow &model) const
    {
        return left >= model.rawOffsetX && top >= model.rawOffsetY && endsOn(model);
    }

    /// The pad with the smallest writing area that holds all of the ink. If none does, the smallest that reaches far
    /// enough to the right and down; if none does that either, the largest.
    const ModelRow &smallestPad() const
    {
        const ModelRow *holds = nullptr, *reaches = nullptr, *largest = kModelRows[0];
        const auto isSmaller = [](const ModelRow &one, const ModelRow *other) {
            return other == nullptr || one.rawSpanX < other->rawSpanX;
        };
        for (const ModelRow *model : kModelRows) {
            if (liesOn(*model) && isSmaller(*model, holds))
                holds = model;
            if (endsOn(*model) && isSmaller(*model, reaches))
                reaches = model;
            if (isSmaller(*largest, model))
                largest = model;
        }
        return holds != nullptr ? *holds : reaches != nullptr ? *reaches : *largest;
    }
};

#endif
