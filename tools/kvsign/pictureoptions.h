/// @file
/// The options for how ink looks, shared by several subcommands.
#ifndef PICTUREOPTIONS_H
#define PICTUREOPTIONS_H

#include "commandline.h"
#include "pictures/pictures.h"

class InkInput;

inline constexpr Option kModelOption{
    "model m", "MODEL", "The pad's model: auto, or one of @MODELS@.", "auto", "auto @MODELS@"};
inline constexpr Option kPenWidthOption{"pen-width w", "LEVEL",
    "How thick the pen writes, 1 to 10. Without it as a ballpoint: 2 or 4, by the model.", nullptr, nullptr};
inline constexpr Option kNoPressureOption{
    "no-pressure", nullptr, "Write in one width, whatever the pressure.", nullptr, nullptr};
inline constexpr Option kColourOption{
    "color c", "COLOR", "The ink's colour: a name such as navy, or #rrggbb.", "black", "black navy blue red green"};
inline constexpr Option kClipOption{"clip", "MARGIN",
    "Cut the pictures to the ink with a margin in pixels; X,Y for two different ones.", nullptr, nullptr};
inline constexpr Option kScaleOption{
    "scale s", "FACTOR", "Pixels for each pixel of a canvas that is 800 wide, 0.01 to 100.", "1", nullptr};
inline constexpr Option kBackgroundOption{"background", "COLOR",
    "Colour behind the ink; without it none, or white where the format needs one.", nullptr, "white"};

struct ClipMargin
{
    bool isSet = false;
    int x = 0;
    int y = 0;
};

ClipMargin clipMargin(const Arguments &arguments);
QColor colour(const Arguments &arguments, const Option &option);
int penWidth(const Arguments &arguments, const ModelRow &model);

/// Throws when an option's value is wrong.
void checkPictureOptions(const Arguments &arguments);

/// How ink looks, from all options but model and scale.
/// @param model a name in modelrows.h, or auto: the smallest that holds all points
PictureSettings inkSettings(const Arguments &arguments, InkInput &input, const QString &model, double scale);

/// The settings of a picture. Reads all of the input first when the model or the cut depends on the ink.
PictureSettings pictureSettings(const Arguments &arguments, InkInput &input);

#endif
