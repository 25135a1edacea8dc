#include "finger.h"

#include "chance.h"
#include "modelrows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvsim {

namespace {

constexpr int kMargin = 16; // room for the filter around the picture
constexpr int kWidth = kFingerprintWidth + 2 * kMargin;
constexpr int kHeight = kFingerprintHeight + 2 * kMargin;
constexpr double kRidgePeriod = 8.5; // pixels
constexpr int kRadius = 9;
constexpr int kSide = 2 * kRadius + 1;
constexpr int kAngles = 48;

using Field = std::vector<double>; // kWidth by kHeight

std::size_t at(int x, int y)
{
    return static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x);
}

/// Ridge direction around a loop: half the turn around the core less half the turn around the delta.
double ridgeAngle(double x, double y)
{
    constexpr double kCoreX = kWidth * 0.50, kCoreY = kHeight * 0.40;
    constexpr double kDeltaX = kWidth * 0.86, kDeltaY = kHeight * 0.80;
    return 0.5 * (std::atan2(y - kCoreY, x - kCoreX) - std::atan2(y - kDeltaY, x - kDeltaX));
}

/// A filter for waves of the ridges' period across a direction. Its sum is zero, so plain grey stays plain.
using Kernel = std::array<double, kSide * kSide>;

Kernel gaborKernel(double angle)
{
    constexpr double kSigma = 3.6;
    Kernel kernel{};
    std::array<double, kSide * kSide> bell{};
    double sum = 0, bellSum = 0;
    for (int y = -kRadius; y <= kRadius; ++y)
        for (int x = -kRadius; x <= kRadius; ++x) {
            const auto i = static_cast<std::size_t>((y + kRadius) * kSide + x + kRadius);
            const double across = -x * std::sin(angle) + y * std::cos(angle);
            bell[i] = std::exp(-(x * x + y * y) / (2 * kSigma * kSigma));
            kernel[i] = bell[i] * std::cos(2 * kPi * across / kRidgePeriod);
            sum += kernel[i];
            bellSum += bell[i];
        }
    double strength = 0;
    for (std::size_t i = 0; i < kernel.size(); ++i) {
        kernel[i] -= sum / bellSum * bell[i];
        strength += std::abs(kernel[i]);
    }
    for (double &value : kernel)
        value /= strength;
    return kernel;
}

double filtered(const Field &field, int x, int y, const Kernel &kernel)
{
    double sum = 0;
    for (int dy = -kRadius; dy <= kRadius; ++dy) {
        const double *row = &field[at(x - kRadius, y + dy)];
        const double *weights = &kernel[static_cast<std::size_t>((dy + kRadius) * kSide)];
        for (int i = 0; i < kSide; ++i)
            sum += row[i] * weights[i];
    }
    return sum;
}

/// Filters noise again and again, until ridges have grown out of it, with places where they end and fork.
Field growRidges(unsigned seed)
{
    std::vector<Kernel> kernels;
    kernels.reserve(kAngles);
    for (int i = 0; i < kAngles; ++i)
        kernels.push_back(gaborKernel(kPi * i / kAngles));
    Chance chance(seed);
    Field field(at(0, kHeight));
    for (double &value : field)
        value = chance.normal() * 0.5;
    constexpr int kRounds = 9;
    for (int round = 0; round < kRounds; ++round) {
        Field next = field;
        for (int y = kRadius; y < kHeight - kRadius; ++y)
            for (int x = kRadius; x < kWidth - kRadius; ++x) {
                const double turns = ridgeAngle(x, y) / kPi;
                const auto index =
                    static_cast<std::size_t>(std::lround((turns - std::floor(turns)) * kAngles)) % kAngles;
                next[at(x, y)] = std::tanh(6 * filtered(field, x, y, kernels[index]));
            }
        field = std::move(next);
    }
    return field;
}

/// Noise without sharp edges: blotches of some pixels' size.
Field blotches(Chance &chance, int cell)
{
    const int columns = kWidth / cell + 2, rows = kHeight / cell + 2;
    std::vector<double> knots(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    for (double &knot : knots)
        knot = chance.normal();
    Field field(at(0, kHeight));
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const double u = static_cast<double>(x % cell) / cell, v = static_cast<double>(y % cell) / cell;
            const auto knot = static_cast<std::size_t>(y / cell * columns + x / cell);
            const auto below = knot + static_cast<std::size_t>(columns);
            field[at(x, y)] = (knots[knot] * (1 - u) + knots[knot + 1] * u) * (1 - v)
                + (knots[below] * (1 - u) + knots[below + 1] * u) * v;
        }
    return field;
}

/// 1 in the middle of the contact, 0 outside of it, with an uneven edge.
double touch(double x, double y, double size, double unevenness)
{
    const double across = (x - kWidth / 2.0) / (kFingerprintWidth / 2.0 * size);
    const double along = (y - kHeight / 2.0) / (kFingerprintHeight / 2.0 * size);
    const double distance = std::hypot(across, along) + 0.06 * unevenness;
    return std::clamp((1 - distance) / 0.12, 0.0, 1.0);
}

} // namespace

Contact contactOfQuality(int quality)
{
    const double share = std::clamp(quality, 0, 100) / 100.0;
    return {0.62 + 0.34 * share, 0.25 + 0.75 * share, 1.0 - 0.85 * share};
}

GreyImage makeFinger(unsigned seed, const Contact &contact)
{
    const Field ridges = growRidges(seed);
    Chance chance(seed + 1000);
    const Field coarse = blotches(chance, 24), fine = blotches(chance, 5);
    GreyImage image{kFingerprintWidth, kFingerprintHeight, {}};
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x) {
            const auto i = at(x + kMargin, y + kMargin);
            const double pressed = touch(x + kMargin, y + kMargin, contact.size, coarse[i]);
            const double skin = ridges[i] + contact.noise * (0.7 * coarse[i] + 0.5 * fine[i]);
            const double dark = pressed * contact.contrast * (0.5 + 0.5 * std::tanh(1.6 * skin));
            const double grey = 238 - 205 * dark + (3 + 12 * contact.noise) * chance.normal();
            image.pixels.push_back(static_cast<unsigned char>(std::clamp(grey, 0.0, 255.0)));
        }
    return image;
}

} // namespace kvsim
