#include "support/LongTexts.h"
#include "support/RowMakers.h"
#include "support/TestProgram.h"
#include "trips/TripsWindow.h"

using namespace Qt::StringLiterals;

namespace {

// A file with one trip in which every text is that long.
QString longTrip(Workspace &workspace, const QString &text)
{
    const QString path = workspace.makeTrips();
    const qint64 id = trip().no(text).payweek(text).insert(workspace);
    payItem(id, text, 50.0).insert(workspace);
    return path;
}

QString stored(const Workspace &workspace, const QString &what)
{
    return workspace.value(u"SELECT "_s + what).toString();
}

} // namespace

/// A trip whose texts are a megabyte each.
class tst_TripsPageLongTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tripShowsItsTextsInPart_data();
    void tripShowsItsTextsInPart();
    void savedTripKeepsItsWholeTexts_data();
    void savedTripKeepsItsWholeTexts();
    void listOfALongPayweekIsChosenAsOfAnyOther();
};

void tst_TripsPageLongTexts::tripShowsItsTextsInPart_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << LongTexts::words;
    QTest::newRow("unbroken") << LongTexts::unbroken;
    QTest::newRow("line feeds") << u"a"_s + LongTexts::lineFeeds.sliced(2) + u"b"_s;
    QTest::newRow("controls and emoji") << LongTexts::controlsAndEmoji;
}

void tst_TripsPageLongTexts::tripShowsItsTextsInPart()
{
    QFETCH(const QString, text);
    Workspace workspace;
    const TripsWindow trips(longTrip(workspace, text));
    trips.clicksTrip(0);
    QVERIFY(trips.details().contains(LongTexts::saysSo));
    QVERIFY(trips.details().size() < 1'000);
    QVERIFY(trips.window.windowTitle().size() < 200);
    for (const QString &shown : trips.form())
        QVERIFY(shown.size() < 200);
    QVERIFY(trips.window.width() < 2'000);
}

void tst_TripsPageLongTexts::savedTripKeepsItsWholeTexts_data()
{
    tripShowsItsTextsInPart_data();
}

void tst_TripsPageLongTexts::savedTripKeepsItsWholeTexts()
{
    QFETCH(const QString, text);
    Workspace workspace;
    const TripsWindow trips(longTrip(workspace, text));
    trips.clicksTrip(0);
    trips.types("linehaulField", u"1500"_s);
    trips.clicks(u"Save Trip / Changes"_s);
    QCOMPARE(stored(workspace, u"linehaul FROM trips"_s), u"1500"_s);
    const QString whole = text.trimmed(); // as every text is stored
    QVERIFY(stored(workspace, u"trip_no FROM trips"_s) == whole);
    QVERIFY(stored(workspace, u"payweek FROM trips"_s) == whole);
    QVERIFY(stored(workspace, u"name FROM trip_pay_items"_s) == whole);
}

void tst_TripsPageLongTexts::listOfALongPayweekIsChosenAsOfAnyOther()
{
    Workspace workspace;
    const QString path = longTrip(workspace, LongTexts::unbroken);
    trip().payweek(u"04/18/2026"_s).insert(workspace);
    const TripsWindow trips(path);
    QCOMPARE(trips.list()->rowCount(), 2);
    trips.filter()->setCurrentIndex(trips.filter()->findText(u"x"_s, Qt::MatchStartsWith));
    QCOMPARE(trips.list()->rowCount(), 1);
    QVERIFY(trips.filter()->currentText().endsWith(LongTexts::saysSo));
}

TEST_CLASS(tst_TripsPageLongTexts)

#include "tst_TripsPageLongTexts.moc"
