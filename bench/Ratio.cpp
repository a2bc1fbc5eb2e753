#include "bench/Ratio.h"

#include <QElapsedTimer>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

Ratio measured(const QString &name, double limit, int rounds, const std::function<void()> &product,
               const std::function<void()> &floor, const std::function<void()> &prepare)
{
    const auto prepared = [&prepare](const std::function<void()> &work) {
        prepare();
        return millisecondsOf(work);
    };
    prepared(product);
    prepared(floor);
    QList<double> products;
    QList<double> floors;
    for (int round = 0; round < rounds; ++round) {
        products.append(prepared(product));
        floors.append(prepared(floor));
    }
    return {name, limit, median(products), median(floors)};
}

double millisecondsOf(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(QList<double> values)
{
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void printHeader()
{
    QTextStream(stdout) << u"what | product | floor | ratio | limit | \n"_s;
}

void print(const Ratio &ratio)
{
    QTextStream(stdout) << u"%1 | %2 ms | %3 ms | %4 | %5 | %6\n"_s.arg(ratio.name)
                               .arg(ratio.productMs, 0, 'f', 1)
                               .arg(ratio.floorMs, 0, 'f', 1)
                               .arg(ratio.value(), 0, 'f', 2)
                               .arg(ratio.limit, 0, 'f', 2)
                               .arg(ratio.value() <= ratio.limit ? u"holds"_s : u"MISSED"_s);
}
