#include "pdfimport/ImportRepository.h"
#include "pdfimport/ImportTexts.h"
#include "pdfimport/SettlementParser.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_ImportTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void summaryNamesTruckPayweekAndRows()
    {
        SettlementParseResult parsed;
        parsed.truckNumber = u"4417"_s;
        parsed.payweek = u"04/18/2026"_s;
        parsed.addRow({});
        parsed.addRow({});
        QCOMPARE(ImportTexts::summaryText(parsed),
                 u"Truck: 4417 | Payweek: 04/18/2026 | Fuel/DEF Rows: 2"_s);
    }

    void summaryTellsWhatWasNotFound()
    {
        QCOMPARE(ImportTexts::summaryText({}),
                 u"Truck: (not found) | Payweek: (not found) | Fuel/DEF Rows: 0"_s);
    }

    void percentSignsInATruckNumberAreNoPlaces()
    {
        SettlementParseResult parsed;
        parsed.truckNumber = u"%2"_s;
        QCOMPARE(ImportTexts::summaryText(parsed),
                 u"Truck: %2 | Payweek: (not found) | Fuel/DEF Rows: 0"_s);
    }

    void resultHasItsTitleUnderlinedAndItsDetailsLast()
    {
        ImportResult result;
        result.fuelDetailRows = 3;
        result.skippedRows = 1;
        result.message = u"All is well."_s;
        result.details = {u"one"_s, u""_s, u"three"_s};
        QCOMPARE(ImportTexts::resultText(result, u"Dry-Run Preview"_s), u"Dry-Run Preview\n"
                                                                        "---------------\n"
                                                                        "\n"
                                                                        "All is well.\n"
                                                                        "\n"
                                                                        "Fuel/DEF detail rows: 3\n"
                                                                        "Skipped rows: 1\n"
                                                                        "\n"
                                                                        "Details:\n"
                                                                        "one\n"
                                                                        "\n"
                                                                        "three"_s);
    }

    void resultWithoutTitleOrDetailsHasNeitherBlock_data()
    {
        QTest::addColumn<QString>("title");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("blank") << u"   "_s;
    }

    void resultWithoutTitleOrDetailsHasNeitherBlock()
    {
        QFETCH(const QString, title);
        ImportResult result;
        result.message = u"Nothing."_s;
        QCOMPARE(ImportTexts::resultText(result, title),
                 u"Nothing.\n\nFuel/DEF detail rows: 0\nSkipped rows: 0\n"_s);
    }

    void confirmationTellsTheRulesAndAsks()
    {
        QCOMPARE(
            ImportTexts::confirmationText(),
            u"\n\nApply these enabled review rows to trips.db in BLOCK mode?\n\nSafety "
            "rules:\n- A dry-run preview just passed.\n- The actual write will use one "
            "database transaction.\n- Repeat imports are blocked by content hash, PDF/payweek, "
            "and matching review signature.\n- Missing-trip rows are skipped instead of "
            "creating surprise trips.\n- Existing payweek data is NOT deleted or replaced.\n- "
            "An import history/audit row will be written.\n\nContinue with the database "
            "write?"_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportTexts)
#include "tst_ImportTexts.moc"
