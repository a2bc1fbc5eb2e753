#include "locations/LocationRows.h"
#include "locations/LocationsWindow.h"
#include "support/LongTexts.h"
#include "support/TestProgram.h"

using namespace Qt::StringLiterals;

/// A location whose texts are a megabyte each.
class tst_LocationsPageLongTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void locationShowsItsTextsInPart();
    void savedLocationKeepsItsWholeTexts();
};

void tst_LocationsPageLongTexts::locationShowsItsTextsInPart()
{
    for (const QString &text : LongTexts::all) {
        Workspace workspace;
        const LocationsWindow locations(makeLocations(workspace, {locationWith(8, text)}));
        locations.clicksLocation(0);
        QVERIFY(locations.notes()->toPlainText().endsWith(LongTexts::saysSo));
        QVERIFY(locations.notes()->toPlainText().size() < 200);
    }
}

void tst_LocationsPageLongTexts::savedLocationKeepsItsWholeTexts()
{
    Workspace workspace;
    QStringList location = locationWith(8, LongTexts::unbroken);
    location[2] = LongTexts::unbroken;
    const QString path = makeLocations(workspace, {location});
    const LocationsWindow locations(path);
    locations.edits(0);
    QVERIFY(locations.line("locationStreetField")->isReadOnly());
    locations.types("locationNameField", u"Yard"_s);
    locations.clicks(u"Save Location"_s);
    const TestConnection file(path);
    QCOMPARE(file.value(u"SELECT name FROM locations"_s).toString(), u"Yard"_s);
    QVERIFY(file.value(u"SELECT street FROM locations"_s).toString() == LongTexts::unbroken);
    QVERIFY(file.value(u"SELECT notes FROM locations"_s).toString() == LongTexts::unbroken);
}

TEST_CLASS(tst_LocationsPageLongTexts)

#include "tst_LocationsPageLongTexts.moc"
