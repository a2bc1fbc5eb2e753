#include "hands/EnteredTrip.h"

#include "support/RowMakers.h"
#include "support/TestConnection.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Rows = QList<QStringList>;

void EnteredTrip::makeFiles(Workspace &workspace)
{
    workspace.makeTrips();
    const qint64 id = trip().no(u"4471100"_s).payweek(u"04/11/2026"_s).insert(workspace);
    payItem(id, u"Layover Memphis"_s, 1.0).insert(workspace);
    costItem(id, u"Tolls Turnpike"_s, 1.0).insert(workspace);
    expense(u"04/11/2026"_s, u"Tire Fund Withdrawal"_s, 1.0).insert(workspace);
    TestConnection(workspace.makeLocations())
        .execute(u"INSERT INTO locations (code) VALUES ('DAL40'), ('KC1')"_s);
}

void EnteredTrip::isWritten(const Workspace &workspace)
{
    const auto rows = [&workspace](const QString &sql) { return workspace.rows(sql); };
    QTRY_COMPARE(rows(u"SELECT trip_no, payweek, empty_miles, loaded_miles, linehaul, fusu, "
                      "carrier_pct, total_revenue, total_cost, net_revenue, trip_hours FROM trips "
                      "WHERE id = 2"_s),
                 Rows({{u"4471203"_s, u"04/18/2026"_s, u"100"_s, u"1234.5"_s, u"2345.67"_s,
                        u"210.4"_s, u"25"_s, u"2706.07"_s, u"514.25"_s, u"2191.82"_s, u"33.5"_s}}));
    QCOMPARE(rows(u"SELECT stop_type, location_code, appt, stop_order, has_appointment_window, "
                  "appt_latest FROM trip_stops ORDER BY id"_s),
             Rows({{u"shipper"_s, u"DAL4"_s, u"2026-04-15T08:00:00"_s, u"0"_s, u"0"_s, u""_s},
                   {u"receiver"_s, u"KC"_s, u"2026-04-16T12:00:00"_s, u"1"_s, u"1"_s,
                    u"2026-04-16T14:30:00"_s}}));
    QCOMPARE(rows(u"SELECT name, amount FROM trip_pay_items WHERE trip_id = 2"_s),
             Rows({{u"Layover"_s, u"150"_s}}));
    QCOMPARE(rows(u"SELECT name, amount FROM trip_cost_items WHERE trip_id = 2"_s),
             Rows({{u"Tolls"_s, u"34.5"_s}, {u"DEF"_s, u"479.75"_s}}));
    QCOMPARE(rows(u"SELECT item_type, cost, discount, gallons FROM trip_detail_items"_s),
             Rows({{u"Def"_s, u"500"_s, u"20.25"_s, u"120.5"_s}}));
    QCOMPARE(rows(u"SELECT settlement_date, kind, name, amount FROM settlement_non_trip_items "
                  "WHERE id = 2"_s),
             Rows({{u"04/18/2026"_s, u"expense"_s, u"Tire Fund"_s, u"50"_s}}));
    const TestConnection locations(workspace.path(u"locations.db"_s));
    QCOMPARE(
        locations
            .value(u"SELECT GROUP_CONCAT(code) FROM (SELECT code FROM locations ORDER BY rowid)"_s)
            .toString(),
        u"DAL40,KC1,DAL4,KC"_s);
}

void EnteredTrip::isShown(Desk &desk)
{
    QTRY_COMPARE(desk.text("payweekBox"), u"04/18/2026"_s);
    QCOMPARE(desk.text({"payweekTrips", 0, 0}), u"4471203"_s);
    const QStringList lines = desk.text("payweekSummary").split(u'\n');
    QVERIFY(lines.contains(u"  Trip count: 1"_s));
    QVERIFY(lines.contains(u"  Trip net: $2,191.82"_s));
}
