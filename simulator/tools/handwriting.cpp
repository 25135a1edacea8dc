#include "handwriting.h"

#include "chance.h"

#include <algorithm>
#include <cmath>

namespace kvsim {

namespace {

constexpr double kRadians = kPi / 180;
constexpr double kPacketSeconds = 1.0 / 220;

/// One stroke: an arc that is run through with lognormal speed.
struct Stroke
{
    double onset; ///< seconds; the movement begins shortly after it
    double logTime; ///< mu
    double spread; ///< sigma
    double length;
    double startAngle;
    double turn;

    double shareAt(double time) const
    {
        if (time <= onset)
            return 0;
        return 0.5 * std::erfc(-(std::log(time - onset) - logTime) / (spread * std::sqrt(2.0)));
    }
    Target displacementAt(double time) const
    {
        const double share = shareAt(time);
        if (std::abs(turn) < 1e-6)
            return {length * share * std::cos(startAngle), length * share * std::sin(startAngle)};
        const double angle = startAngle + turn * share;
        const double radius = length / turn;
        return {radius * (std::sin(angle) - std::sin(startAngle)), radius * (std::cos(startAngle) - std::cos(angle))};
    }
};

/// From when to when the pen touches.
struct Touch
{
    double from;
    double to;
};

struct Movement
{
    Target start{0, 0};
    std::vector<Stroke> strokes;
    std::vector<Touch> contacts;

    Target positionAt(double time) const
    {
        Target position = start;
        for (const Stroke &stroke : strokes) {
            const Target moved = stroke.displacementAt(time);
            position.x += moved.x;
            position.y += moved.y;
        }
        return position;
    }
    double speedAt(double time) const
    {
        constexpr double kStep = 0.002;
        const Target a = positionAt(time - kStep), b = positionAt(time + kStep);
        return std::hypot(b.x - a.x, b.y - a.y) / (2 * kStep);
    }
};

Target leaning(const Target &target, const Manner &manner)
{
    const double x = target.x - target.y * std::tan(manner.slant * kRadians);
    return {x, target.y - x * std::tan(manner.rise * kRadians), target.bend};
}

/// Lays the strokes out in time. Each begins while the one before is still going on.
class Planner
{
public:
    Planner(const Manner &manner, unsigned seed)
        : m_manner(manner)
        , m_chance(seed)
    {
    }

    Movement plan(const std::vector<PenPath> &paths)
    {
        m_movement.start = m_hand = leaning(paths.front().front(), m_manner);
        for (const PenPath &path : paths) {
            m_spread = 0.30;
            if (&path != &paths.front())
                travelTo(path.front());
            const double from = m_clock + 0.01;
            for (std::size_t i = 1; i < path.size(); ++i)
                addStroke(path[i], strokeSeconds(path[i]));
            if (path.size() == 1) // a dot: the pen slips a little
                addStroke({path[0].x + 0.03, path[0].y + 0.05}, 0.04);
            m_movement.contacts.push_back({from, m_clock + 0.05});
        }
        return std::move(m_movement);
    }

private:
    /// Longer strokes are faster: the time grows with a root of the length only.
    double strokeSeconds(const Target &target)
    {
        const Target to = leaning(target, m_manner);
        const double distance = std::hypot(to.x - m_hand.x, to.y - m_hand.y);
        const double turn = std::abs(target.bend) * kRadians;
        return (0.062 + 0.030 * std::pow(distance, 0.6) + 0.012 * turn) / m_manner.tempo;
    }

    void travelTo(const Target &target)
    {
        m_clock += 0.06;
        const Target to = leaning(target, m_manner);
        const double distance = std::hypot(to.x - m_hand.x, to.y - m_hand.y);
        addStroke({target.x, target.y, 25}, (0.09 + 0.03 * std::sqrt(distance)) / m_manner.tempo);
        m_clock += 0.09; // the hand has nearly arrived when the pen comes down
    }

    void addStroke(const Target &target, double seconds)
    {
        const double unrest = m_manner.unrest;
        Target to = leaning(target, m_manner);
        const double planned = std::hypot(to.x - m_hand.x, to.y - m_hand.y);
        to.x += unrest * 0.035 * planned * m_chance.normal();
        to.y += unrest * 0.025 * planned * m_chance.normal();
        const double chord = std::hypot(to.x - m_hand.x, to.y - m_hand.y);
        const double turn = (target.bend + unrest * 5 * m_chance.normal()) * kRadians;
        const double angle = std::atan2(to.y - m_hand.y, to.x - m_hand.x);
        const double length = std::abs(turn) < 1e-6 ? chord : chord * (turn / 2) / std::sin(turn / 2);
        const double time = seconds * 1.02 * std::exp(unrest * 0.06 * m_chance.normal());
        const double spread = m_spread * std::exp(unrest * 0.08 * m_chance.normal());
        const double onset = m_clock - time * std::exp(-3 * spread);
        m_movement.strokes.push_back({onset, std::log(time), spread, length, angle - turn / 2, turn});
        m_clock += seconds;
        m_hand = to;
    }

    const Manner &m_manner;
    Chance m_chance;
    Movement m_movement;
    Target m_hand{0, 0};
    double m_clock = 0.05;
    double m_spread = 0.3;
};

/// Pressure follows the movement slowly: more when slow, more downwards, rising and falling at the stroke's ends.
class Grip
{
public:
    Grip(const Movement &movement, const Manner &manner)
        : m_movement(movement)
        , m_manner(manner)
    {
        for (const Touch &contact : movement.contacts)
            for (double time = contact.from; time < contact.to; time += 0.01)
                m_fastest = std::max(m_fastest, movement.speedAt(time));
    }

    double pressureAt(double time, const Touch &contact, Chance &chance)
    {
        const double speed = m_fastest > 0 ? m_movement.speedAt(time) / m_fastest : 0;
        const double down = (m_movement.positionAt(time + 0.004).y - m_movement.positionAt(time - 0.004).y) / 0.008;
        const double share = m_fastest > 0 ? std::clamp(down / m_fastest, -1.0, 1.0) : 0;
        m_drift += 0.04 * (chance.normal() * 0.35 - m_drift);
        const double wanted = m_manner.pressure * (1.25 - 0.90 * speed + 0.60 * share + m_drift);
        m_held = time - contact.from < kPacketSeconds ? wanted : m_held + 0.18 * (wanted - m_held);
        const double rise = std::min(1.0, (time - contact.from) / 0.045);
        const double fall = std::min(1.0, (contact.to - time) / 0.05);
        const double ends = (0.22 + 0.78 * std::sin(rise * kPi / 2)) * (0.12 + 0.88 * std::sin(fall * kPi / 2));
        return std::clamp(m_held * ends, 0.01, 1.0);
    }

private:
    const Movement &m_movement;
    const Manner &m_manner;
    double m_fastest = 0;
    double m_drift = 0;
    double m_held = 0;
};

} // namespace

std::vector<Sample> writeByHand(const std::vector<PenPath> &paths, const Manner &manner, unsigned seed)
{
    const Movement movement = Planner(manner, seed).plan(paths);
    Grip grip(movement, manner);
    Chance chance(seed + 1);
    std::vector<Sample> samples;
    for (const Touch &contact : movement.contacts) {
        Sample::State state = Sample::Down;
        double time = contact.from;
        for (; time < contact.to; time += kPacketSeconds * (1 + 0.06 * chance.normal())) {
            const Target at = movement.positionAt(time);
            samples.push_back({time * 1000, at.x, at.y, grip.pressureAt(time, contact, chance), state});
            state = Sample::Move;
        }
        const Target at = movement.positionAt(time);
        samples.push_back({time * 1000, at.x, at.y, 0, Sample::Up});
    }
    return samples;
}

} // namespace kvsim
