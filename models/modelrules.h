/// @file
/// What the rows of modelrows.h mean: which pad a version text names, how wide a pen writes, how high a canvas is.
#ifndef MODELRULES_H
#define MODELRULES_H

#include "modelrows.h"

#include <optional>

// So far all of this follows from whether the pad has a screen. Each is asked by its own name, so that a model that has
// only some of it can be told apart here.

/// A pen identifier and a secure identifier, besides the pad's own.
constexpr bool hasIdentifiers(const ModelRow &model)
{
    return model.hasScreen;
}

/// Shows its version on its screen.
constexpr bool showsVersion(const ModelRow &model)
{
    return model.hasScreen;
}

/// Draws the ink itself too, and so must be told whether width follows pressure.
constexpr bool drawsInk(const ModelRow &model)
{
    return model.hasScreen;
}

/// Clears its own picture of the ink when the pen confirms, and not only when it cancels.
constexpr bool clearsAtConfirm(const ModelRow &model)
{
    return !model.hasScreen;
}

/// Largest pressure of the pad that gave this version text; nothing when it is the text of another model.
constexpr std::optional<int> maxPressureOf(const ModelRow &model, std::string_view version)
{
    for (const VersionPrefix &prefix : model.versions) {
        if (prefix.text == nullptr)
            break;
        const std::string_view text = prefix.text;
        if (version.substr(0, text.size()) == text)
            return prefix.maxPressure;
    }
    return std::nullopt;
}

/// Pen width in pixels per unit of raw pressure, for a width level of 1 to 10.
constexpr double pressureRatio(const ModelRow &model, int widthLevel, int maxPressure)
{
    if (model.widthRule == WidthRule::FixedDivisor)
        return widthLevel / 306.0;
    return widthLevel * 3.0 / maxPressure;
}

/// Pen width in pixels without pressure.
constexpr int fixedWidth(const ModelRow &model, int widthLevel)
{
    return model.widthRule == WidthRule::FixedDivisor ? widthLevel : widthLevel * 3;
}

/// Width level at which strokes on a canvas of 800 pixels look like those of a ballpoint.
constexpr int ballpointLevel(const ModelRow &model)
{
    return model.widthRule == WidthRule::FixedDivisor ? 2 : 4;
}

/// Width of the writing area divided by its height.
constexpr double proportions(const ModelRow &model)
{
    return static_cast<double>(model.rawSpanX) / model.rawSpanY;
}

/// Height of a canvas of this width in the proportions of the writing area, rounded to whole pixels.
constexpr int canvasHeight(const ModelRow &model, int width)
{
    return (2 * width * model.rawSpanY / model.rawSpanX + 1) / 2;
}

#endif
