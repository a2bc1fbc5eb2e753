#include "pdfimport/history/ImportHistoryRepository.h"
#include "pdfimport/history/ImportHistoryText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

ImportHistoryRow activity()
{
    return {.id = 7,
            .createdAt = u"2026-04-21 09:30:00"_s,
            .pdfName = u" to /media/stick "_s,
            .payloadJson = u"to /media/stick"_s,
            .sourceHash = u"database_activity"_s,
            .action = u"Export Database"_s,
            .database = u"trips.db"_s,
            .details = u"to /media/stick"_s,
            .isDatabaseActivity = true};
}

ImportHistoryRow pdfImport()
{
    return {.id = 12,
            .createdAt = u"2026-04-20 14:05:09"_s,
            .payweek = u"04/18/2026"_s,
            .truckNumber = u"4417"_s,
            .pdfName = u"week16.pdf"_s,
            .importMode = u"fuel_def_only"_s,
            .countsJson = uR"({"fuel_detail":2})"_s,
            .payloadJson = uR"({"payweek":"04/18/2026"})"_s,
            .sourceHash = u"5ea1"_s,
            .action = u"fuel_def_only"_s,
            .database = u"PDF Import"_s,
            .details = u"week16.pdf"_s};
}

} // namespace

class tst_ImportHistoryText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void activityHasNoSecondBlockThoughItsPayloadHoldsText()
    {
        QCOMPARE(ImportHistoryText::detailsText(activity()), u"Database Activity History Row\n"
                                                             "-----------------------------\n"
                                                             "ID: 7\n"
                                                             "Created: 2026-04-21 09:30:00\n"
                                                             "Action: Export Database\n"
                                                             "Database: trips.db\n"
                                                             "Details: to /media/stick\n"_s);
    }

    void importTellsAllThatTheLogHolds()
    {
        QCOMPARE(ImportHistoryText::detailsText(pdfImport()), u"Database Activity History Row\n"
                                                              "-----------------------------\n"
                                                              "ID: 12\n"
                                                              "Created: 2026-04-20 14:05:09\n"
                                                              "Action: fuel_def_only\n"
                                                              "Database: PDF Import\n"
                                                              "Details: week16.pdf\n"
                                                              "\n"
                                                              "Legacy PDF Import Details\n"
                                                              "-------------------------\n"
                                                              "Payweek: 04/18/2026\n"
                                                              "Truck: 4417\n"
                                                              "PDF: week16.pdf\n"
                                                              "Mode: fuel_def_only\n"
                                                              "Source Hash: 5ea1\n"
                                                              "\n"
                                                              "Counts JSON\n"
                                                              "-----------\n"
                                                              "{\"fuel_detail\":2}\n"
                                                              "\n"
                                                              "Payload JSON\n"
                                                              "------------\n"
                                                              "{\"payweek\":\"04/18/2026\"}\n"_s);
    }

    void blankDetailsAndJsonAreCalledBlank()
    {
        ImportHistoryRow row = pdfImport();
        row.details = u"  "_s;
        row.countsJson.clear();
        row.payloadJson = u" \n "_s;
        const QString text = ImportHistoryText::detailsText(row);
        QCOMPARE(text.section(u'\n', 6, 6), u"Details: (blank)"_s);
        QVERIFY2(text.endsWith(u"Source Hash: 5ea1\n\n"
                               "Counts JSON\n-----------\n(blank)\n\n"
                               "Payload JSON\n------------\n(blank)\n"_s),
                 qPrintable(text));
    }

    void otherBlankTextsStayBlank()
    {
        const QString text = ImportHistoryText::detailsText({});
        QVERIFY2(text.startsWith(u"Database Activity History Row\n-----------------------------\n"
                                 "ID: 0\nCreated: \nAction: \nDatabase: \nDetails: (blank)\n\n"
                                 "Legacy PDF Import Details\n-------------------------\n"
                                 "Payweek: \nTruck: \nPDF: \nMode: \nSource Hash: \n\n"_s),
                 qPrintable(text));
    }

    void descriptionHasFourLines()
    {
        QCOMPARE(ImportHistoryText::description(activity()),
                 u"ID 7\nAction: Export Database\nDatabase: trips.db\nDetails: to /media/stick"_s);
        QCOMPARE(ImportHistoryText::description({}), u"ID 0\nAction: \nDatabase: \nDetails: "_s);
    }

    void percentSignsInTheLogAreNoPlaces()
    {
        ImportHistoryRow row = activity();
        row.action = u"Export %4"_s;
        row.details = u"100%1.db"_s;
        QCOMPARE(ImportHistoryText::description(row),
                 u"ID 7\nAction: Export %4\nDatabase: trips.db\nDetails: 100%1.db"_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportHistoryText)
#include "tst_ImportHistoryText.moc"
