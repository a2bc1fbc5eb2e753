#pragma once

#include "reports/charts/ChartPoint.h"

#include <QCoreApplication>
#include <QDialog>
#include <QList>

/// Shows one series: a chart, the same figures as a table in the order of `points`, and a summary
/// to read. It computes nothing and reads nothing; what it was given it shows until it is closed.
class BreakdownDialog : public QDialog
{
    Q_DECLARE_TR_FUNCTIONS(BreakdownDialog)

public:
    BreakdownDialog(const QString &title, const QList<ChartPoint> &points,
                    const QString &summaryText, QWidget *parent = nullptr);
    ~BreakdownDialog() override;
};

/// Gives a dialog `scalePercent` (brought into 75..175) of its size in pixels at 100 percent, at
/// least 320 by 240. A missing dialog is ignored.
void sizeDialogForScale(QDialog *dialog, int baseWidth, int baseHeight, int scalePercent);
