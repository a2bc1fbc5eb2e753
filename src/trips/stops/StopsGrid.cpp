#include "trips/stops/StopsGrid.h"

#include "data/DomainRules.h"
#include "ui/WheelGuard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastGridHeight = 90;
constexpr int leastTypeColumnWidth = 120;
constexpr int leastTypeLength = 8;
constexpr int leastCodeLength = 12;

QString shownAppointment(const QString &stored)
{
    const QDateTime time = DomainRules::parseAppointmentDateTime(stored);
    return time.isValid() ? time.toString(u"MM/dd/yyyy HH:mm"_s) : stored.trimmed();
}

} // namespace

StopsGrid::StopsGrid(QWidget *parent)
    : TripGrid({{tr("Type"), 120, 110},
                {tr("Location Code"), 180, 180},
                {tr("Window"), 90},
                {tr("Earliest Appointment"), 220},
                {tr("Latest Appointment"), 220},
                {tr("Order"), 80}},
               leastGridHeight, parent)
{
}

void StopsGrid::appendStop(const TripRows::StopRow &stop, const OfferedTexts &codes)
{
    const QSignalBlocker blocker(this);
    const int row = rowCount();
    insertRow(row);
    putType(row, stop.type);
    putBox(row, LocationColumn, codes.makeBox(stop.locationCode, leastCodeLength), {});
    putText(row, EarliestColumn, shownAppointment(stop.appointment));
    putText(row, LatestColumn, shownAppointment(stop.latest));
    putText(row, OrderColumn, stop.order);
    putWindow(row, stop.hasWindow);
}

void StopsGrid::putType(int row, const QString &type)
{
    auto *box = new QComboBox;
    box->addItems({u"shipper"_s, u"receiver"_s});
    box->setMinimumContentsLength(leastTypeLength);
    box->setCurrentIndex(
        std::max(0, box->findText(type.trimmed().toLower(), Qt::MatchFixedString)));
    guardFromWheel(box);
    putBox(row, TypeColumn, box, box->itemText(0));
    connect(box, &QComboBox::currentTextChanged, this, &StopsGrid::typeChanged);
}

void StopsGrid::putWindow(int row, bool hasWindow)
{
    auto *box = new QCheckBox;
    box->setToolTip(tr("Check when this stop has an appointment window."));
    box->setStyleSheet(u"margin-left: 8px;"_s);
    box->setChecked(hasWindow);
    putBox(row, WindowColumn, box, hasWindow ? 1 : 0);
    followWindow(row, hasWindow);
    connect(box, &QCheckBox::toggled, this, [this, box](bool checked) {
        const int rowNow = keepBelow(box, WindowColumn, checked ? 1 : 0);
        if (rowNow >= 0)
            followWindow(rowNow, checked);
    });
}

void StopsGrid::followWindow(int row, bool hasWindow)
{
    QTableWidgetItem *latest = item(row, LatestColumn);
    latest->setFlags(latest->flags().setFlag(Qt::ItemIsEditable, hasWindow));
    if (!hasWindow)
        latest->setText({});
}

void StopsGrid::putText(int row, int column, const QString &text)
{
    setItem(row, column, new QTableWidgetItem(text));
}

void StopsGrid::renumber()
{
    const QSignalBlocker blocker(this);
    for (int row = 0; row < rowCount(); ++row)
        putText(row, OrderColumn, QString::number(row));
}

void StopsGrid::rescaleForStops()
{
    rescaleColumns();
    setColumnWidth(TypeColumn, std::max(leastTypeColumnWidth, columnWidth(TypeColumn)));
}

TripRows::StopRow StopsGrid::stopAt(int row) const
{
    const QString order = cellText(row, OrderColumn).trimmed();
    bool isNumber = false;
    const int number = order.toInt(&isNumber);
    return {boxText(row, TypeColumn),
            boxText(row, LocationColumn),
            cellText(row, EarliestColumn).trimmed(),
            QString::number(isNumber ? number : row),
            hasWindow(row),
            cellText(row, LatestColumn).trimmed()};
}

bool StopsGrid::hasWindow(int row) const
{
    if (const auto *box = qobject_cast<QCheckBox *>(cellWidget(row, WindowColumn)))
        return box->isChecked();
    const QTableWidgetItem *below = item(row, WindowColumn);
    return below && below->data(valueRole).toInt() != 0;
}

QList<TripArithmetic::TripStopTiming> StopsGrid::stopsFromGrid() const
{
    QList<TripArithmetic::TripStopTiming> stops;
    for (int row = 0; row < rowCount(); ++row)
        stops.append(TripArithmetic::stopTiming(boxText(row, TypeColumn),
                                                cellText(row, EarliestColumn), hasWindow(row),
                                                cellText(row, LatestColumn)));
    return stops;
}
