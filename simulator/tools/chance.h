/// @file
/// Random numbers that are the same with every compiler. The distributions of the standard library are not.
#ifndef CHANCE_H
#define CHANCE_H

#include <cmath>
#include <random>

namespace kvsim {

inline constexpr double kPi = 3.14159265358979323846;

class Chance
{
public:
    explicit Chance(unsigned seed)
        : m_engine(seed)
    {
    }
    /// Between 0 and 1, both excluded.
    double uniform() { return (static_cast<double>(m_engine()) + 0.5) / 4294967296.0; }
    /// Mean 0, standard deviation 1.
    double normal()
    {
        const double radius = std::sqrt(-2 * std::log(uniform()));
        return radius * std::cos(2 * kPi * uniform());
    }

private:
    std::mt19937 m_engine;
};

} // namespace kvsim

#endif
