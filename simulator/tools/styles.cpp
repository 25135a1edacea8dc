#include "styles.h"

namespace kvsim {

namespace {

/// A letter in its own coordinates: it begins on the base line at (0, 0), small letters are 1 high, y points down.
/// The last target is where the next letter begins.
struct Letter
{
    char name;
    PenPath targets;
};

const Letter kLetters[] = {
    {'a',
        {{0.78, -0.86, 50}, {0.36, -1.0, -50}, {0.12, -0.42, -60}, {0.42, 0.02, -90}, {0.84, -0.92, -50},
            {0.82, -0.08, 0}, {1.25, -0.16, -100}}},
    {'d',
        {{0.78, -0.86, 50}, {0.36, -1.0, -50}, {0.12, -0.42, -60}, {0.42, 0.02, -90}, {0.90, -2.1, -25},
            {0.82, -0.08, 0}, {1.25, -0.16, -100}}},
    {'e', {{0.60, -0.66, -45}, {0.32, -1.0, -140}, {0.20, -0.30, -55}, {0.75, -0.10, -130}}},
    {'h',
        {{0.70, -1.85, -35}, {0.42, -2.3, -150}, {0.25, 0.0, -5}, {0.66, -0.98, 60}, {0.86, -0.08, 60},
            {1.28, -0.16, -100}}},
    {'i', {{0.42, -1.0, -20}, {0.34, -0.08, -5}, {0.78, -0.16, -110}}},
    {'l', {{0.72, -1.9, -35}, {0.44, -2.35, -150}, {0.30, -0.10, -12}, {0.76, -0.16, -115}}},
    {'m',
        {{0.30, -1.0, 30}, {0.28, 0.0, 15}, {0.66, -1.0, 70}, {0.80, 0.0, 50}, {1.16, -0.98, 70}, {1.32, -0.08, 55},
            {1.74, -0.16, -100}}},
    {'n', {{0.30, -1.0, 30}, {0.28, 0.0, 15}, {0.66, -1.0, 70}, {0.84, -0.08, 55}, {1.26, -0.16, -100}}},
    {'o',
        {{0.70, -0.92, 40}, {0.30, -0.95, -70}, {0.18, -0.25, -60}, {0.62, -0.15, -120}, {0.58, -0.95, -90},
            {1.02, -0.86, -80}}},
    {'r', {{0.34, -1.08, -15}, {0.62, -0.92, 40}, {0.62, -0.10, 10}, {1.02, -0.16, -100}}},
    {'t', {{0.55, -1.9, -15}, {0.42, -0.08, -5}, {0.88, -0.16, -110}}},
    {'u', {{0.36, -1.0, -20}, {0.32, -0.12, -15}, {0.84, -0.95, -130}, {0.80, -0.08, -5}, {1.22, -0.16, -100}}},
    {'v', {{0.30, -1.0, 40}, {0.48, -0.02, 10}, {0.86, -1.0, -30}, {1.18, -0.86, -90}}},
    {'y',
        {{0.36, -1.0, -20}, {0.34, -0.14, -15}, {0.84, -0.95, -130}, {0.55, 1.10, 10}, {0.22, 1.15, 150},
            {1.10, -0.14, 30}}},
};

/// Appends letters to a path, each a little lower than the one before, as a hand in a hurry does.
void append(PenPath &path, std::string_view word, double size, double flattening = 1)
{
    for (const char name : word) {
        const Target origin = path.back();
        const double left = origin.x, base = 0;
        for (const Letter &letter : kLetters)
            if (letter.name == name)
                for (const Target &target : letter.targets)
                    path.push_back({left + target.x * size, base + target.y * size, target.bend});
        size *= flattening;
    }
}

std::vector<PenPath> flowing()
{
    // A tall capital that loops into the word, a dot, and a swing below it all from right to left and back.
    PenPath name{{0.9, -2.2}, {0.35, -2.9, -110}, {-0.1, -2.1, -80}, {0.75, -1.55, -70}, {0.0, -0.9, -30},
        {0.1, 0.1, -100}, {1.35, -0.25, -70}};
    append(name, "lunare", 1.0, 0.93);
    name.push_back({name.back().x + 1.5, -0.35, -30});
    const double end = name.back().x;
    const PenPath swing{{end + 0.1, 0.55}, {0.9, 0.75, 14}, {1.1, 1.15, -170}, {end - 1.2, 0.75, -10}};
    return {name, swing};
}

std::vector<PenPath> initials()
{
    const PenPath first{
        {0.0, 0.1}, {1.05, -2.6, -25}, {1.55, 0.1, 20}, {1.2, 0.2, 120}, {0.35, -0.85, 50}, {2.0, -1.05, 40}};
    const PenPath second{
        {2.6, 0.0}, {2.75, -2.4, -10}, {3.45, -0.5, 10}, {4.2, -2.45, -10}, {4.35, -0.1, 10}, {5.4, -0.5, -100}};
    return {first, {{2.2, 0.05}}, second, {{5.0, 0.1}}};
}

std::vector<PenPath> longName()
{
    PenPath capital{
        {0.15, -2.0}, {0.25, -2.5, 90}, {0.2, 0.0, 10}, {0.9, -2.45, 60}, {1.3, -0.05, 40}, {1.8, -0.2, -100}};
    append(capital, "iren", 0.95, 0.97);
    const double middle = capital.back().x + 0.9;
    PenPath second{{middle + 1.0, -2.2}, {middle + 0.3, -2.4, -90}, {middle, -1.0, -50}, {middle + 0.7, 0.1, -110},
        {middle + 1.4, -0.2, -60}};
    append(second, "holmenyu", 0.95, 0.95);
    second.push_back({second.back().x + 1.0, -0.5, -40});
    return {capital, {{2.55, -1.6}}, second};
}

std::vector<PenPath> tickAndCross()
{
    const PenPath tick{{0.0, -1.0}, {0.6, 0.0, -10}, {2.0, -2.6, -12}};
    return {tick, {{3.4, -2.2}, {5.0, 0.0, 6}}, {{5.1, -2.3}, {3.3, 0.1, -6}}};
}

std::vector<PenPath> dotsAndDashes()
{
    std::vector<PenPath> marks;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 5; ++column) {
            const double x = column * 1.2, y = row * 1.0;
            if ((row + column) % 2 == 0)
                marks.push_back({{x + 0.3, y}});
            else
                marks.push_back({{x, y}, {x + 0.7, y, 4}});
        }
    return marks;
}

const Style kStyles[] = {
    {"signature", "a flowing signature with a swing below", flowing, {14, 4, 1.2, 1, 0.28}, 0.78, false, false},
    {"initials", "two initials with their points", initials, {10, 2, 0.95, 1, 0.32}, 0.45, false, false},
    {"long-signature", "two names in full", longName, {16, 2, 1.7, 1, 0.26}, 0.88, false, false},
    {"signature-finger", "a flowing signature, with the finger on the sensor before and after it", flowing,
        {14, 4, 1.2, 1, 0.28}, 0.78, false, true},
    {"tick-and-cross", "a tick, then a cross, then cancel", tickAndCross, {0, 0, 0.9, 1, 0.34}, 0.40, true, false},
    {"dots-and-dashes", "fifteen short marks", dotsAndDashes, {0, 0, 1.2, 0.8, 0.30}, 0.60, false, false},
};

} // namespace

const Style *styleOfName(std::string_view name)
{
    for (const Style &style : kStyles)
        if (style.name == name)
            return &style;
    return nullptr;
}

std::string_view styleNames(std::size_t index)
{
    return index < std::size(kStyles) ? kStyles[index].name : std::string_view();
}

} // namespace kvsim
