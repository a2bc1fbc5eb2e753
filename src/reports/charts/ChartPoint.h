#pragma once

#include <QString>

/// One point of a series: the text under the axis, and its value.
struct ChartPoint
{
    QString label;
    double value = 0.0;
};
