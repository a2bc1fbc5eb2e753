#pragma once

#include <QString>

#include <functional>

/// Measures the product beside its floor, turn by turn in the same run, because machines differ
/// and are noisy: what counts is the ratio of the medians.
struct Ratio
{
    QString name;
    double limit = 0.0;
    double productMs = 0.0;
    double floorMs = 0.0;

    [[nodiscard]] double value() const { return productMs / floorMs; }
};

/// Runs product and floor in turn, `rounds` times each after one unmeasured round. `prepare` runs
/// ahead of every one of them, unmeasured.
Ratio measured(
    const QString &name, double limit, int rounds, const std::function<void()> &product,
    const std::function<void()> &floor, const std::function<void()> &prepare = [] {});

/// The milliseconds that `work` takes.
double millisecondsOf(const std::function<void()> &work);

double median(QList<double> values);

/// Writes what stands in the columns of the lines that follow.
void printHeader();

/// Writes "name  product ms  floor ms  ratio (limit)" and whether it holds.
void print(const Ratio &ratio);
