/// @file
/// The writing areas of the five models, and how thick their pens are: what a picture of an ink record needs.
#ifndef PADAREAS_H
#define PADAREAS_H

#include <QString>

struct PadModel
{
    const char *name;
    int left; ///< the writing area in raw units
    int top;
    int width;
    int height;
    double pixelsPerPressure; ///< at width level 1
    double fixedPixels; ///< without pressure, at width level 1
    int penWidth; ///< level that looks like a ballpoint on kCanvasWidth
};

/// Pixels in a canvas's width when nobody says another.
inline constexpr int kCanvasWidth = 800;

/// A model that serves a record is found by the areas from the first to the last.
inline constexpr PadModel kPadModels[] = {
    {"S300", 200, 200, 2300, 1300, 1 / 306.0, 1, 2},
    {"S210", 160, 220, 2360, 1430, 1 / 306.0, 1, 2},
    {"S310X", 2050, 1750, 21170, 11490, 1 / 306.0, 1, 2},
    {"R800", 550, 180, 29870, 20120, 3 / 8192.0, 3, 4},
    {"M450", 550, 180, 29870, 20120, 3 / 8192.0, 3, 4},
};

inline constexpr const char *kModelChoices = "auto S210 S300 S310X R800 M450";

/// The row of a name, which must be one of the five.
inline const PadModel &padModel(const QString &name)
{
    const PadModel *found = kPadModels;
    for (const PadModel &model : kPadModels) {
        if (name == model.name)
            found = &model;
    }
    return *found;
}

/// The canvas's height in the proportions of the writing area.
inline int canvasHeight(const PadModel &model, int width)
{
    return (2 * width * model.height / model.width + 1) / 2;
}

#endif
