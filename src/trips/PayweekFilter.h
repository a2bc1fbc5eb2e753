#pragma once

#include <QComboBox>

/// Chooses the payweek whose trips are listed, or all of them.
class PayweekFilter : public QComboBox
{
    Q_OBJECT

public:
    explicit PayweekFilter(QWidget *parent = nullptr);

    /// Offers these payweeks after "All Payweeks", without telling of a change. The one that was
    /// chosen stays chosen if it is among them.
    void offer(const QStringList &payweeks);

    /// The chosen payweek, trimmed; empty for all.
    [[nodiscard]] QString payweek() const;

    /// Takes the width that its entries need in its font.
    void fitWidth();
};
