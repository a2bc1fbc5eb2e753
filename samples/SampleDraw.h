#pragma once

#include <QtGlobal>

#include <random>

/// Draws that come out the same for a seed with every compiler: the standard fixes the numbers of
/// this engine, but leaves those of its distributions open. Two draws never stand in one
/// expression, whose order of evaluation is open too.
class SampleDraw
{
public:
    explicit SampleDraw(quint32 seed)
        : engine(seed)
    {
    }

    /// A whole number from `low` to `high`, both included.
    int between(int low, int high)
    {
        const auto span = static_cast<std::mt19937::result_type>(high - low + 1);
        return low + static_cast<int>(engine() % span);
    }

    /// True in `percent` of a hundred cases.
    bool chance(int percent) { return between(1, 100) <= percent; }

    /// An amount in dollars, to the cent.
    double dollars(int lowCents, int highCents) { return between(lowCents, highCents) / 100.0; }

private:
    std::mt19937 engine;
};
