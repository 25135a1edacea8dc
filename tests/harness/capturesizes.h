/// @file
/// The programs' default canvas size for each model: 800 pixels wide, in the proportions of the writing area.
#ifndef CAPTURESIZES_H
#define CAPTURESIZES_H

struct Model
{
    const char *name;
    int width;
    int height;
};

inline constexpr Model kModels[] = {
    {"S210", 800, 485}, {"S300", 800, 452}, {"S310X", 800, 434}, {"R800", 800, 539}, {"M450", 800, 539}};

#endif
