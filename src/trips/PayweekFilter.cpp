#include "trips/PayweekFilter.h"

#include "ui/PageParts.h"
#include "ui/WheelGuard.h"

#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastWidth = 150;

} // namespace

PayweekFilter::PayweekFilter(QWidget *parent)
    : QComboBox(parent)
{
    setObjectName(u"payweekFilter"_s);
    setMinimumWidth(leastWidth);
    addItem(tr("All Payweeks"));
    guardFromWheel(this);
}

void PayweekFilter::offer(const QStringList &payweeks)
{
    const QString chosen = PageParts::chosenText(this);
    const QSignalBlocker blocker(this);
    clear();
    addItem(tr("All Payweeks"));
    PageParts::addChoices(this, payweeks);
    setCurrentIndex(
        std::max(0, findData(chosen, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive)));
}

QString PayweekFilter::payweek() const
{
    return PageParts::chosenText(this).trimmed();
}

void PayweekFilter::fitWidth()
{
    // The hint is that of the content alone, without the minimum set here before.
    setMinimumWidth(std::max(leastWidth, minimumSizeHint().width()));
}
