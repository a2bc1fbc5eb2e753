#include "pdfimport/ImportGuards.h"
#include "pdfimport/ReviewedSettlement.h"
#include "pdfimport/history/HistoryRows.h"
#include "support/TestConnection.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString sameContent = u"Duplicate blocked: matching source content was already imported as "
                            "history ID 1 on 2026-04-20 14:05:09 (payweek 01/03/2026, PDF "
                            "other.pdf)."_s;
const QString sameName = u"Duplicate blocked: PDF name 'week16.pdf' was already imported for "
                         "payweek 04/18/2026 as history ID 1 on 2026-04-20 14:05:09."_s;
const QString sameRows = u"Duplicate blocked: matching review rows were already imported for "
                         "truck 512 / payweek 04/18/2026 as history ID 1 on 2026-04-20 14:05:09 "
                         "(PDF other.pdf)."_s;

const HistoryRow ofAnother = {.payweek = u"01/03/2026"_s, .pdfName = u"other.pdf"_s};

// Imports that one guard alone takes for the same.
const HistoryRow ofSameContent = {
    .payweek = u"01/03/2026"_s, .pdfName = u"other.pdf"_s, .sourceHash = u"hash"_s};
const HistoryRow ofSameName = {.payweek = u"04/18/2026"_s, .pdfName = u"week16.pdf"_s};
const HistoryRow ofSameRows = {.truck = u"512"_s,
                               .payweek = u"04/18/2026"_s,
                               .pdfName = u"other.pdf"_s,
                               .payload = u"{\"review_signature\":\"signed\"}"_s};

/// A file with a log, and what the guards say of a settlement against it.
class GuardedFile
{
public:
    explicit GuardedFile(const QList<HistoryRow> &log)
        : trips(workspace.makeTrips())
    {
        for (const HistoryRow &logged : log)
            insertHistory(workspace, logged);
    }

    /// Empty if nothing is in the way.
    QString answers(const SettlementParseResult &settlement,
                    const QString &sourceHash = u"hash"_s) const
    {
        QString message = u"an old message"_s;
        const bool found = ImportGuards::findDuplicate(trips.database(), settlement, sourceHash,
                                                       u"signed"_s, message);
        if (found == message.isEmpty())
            QTest::qFail(qPrintable(message), __FILE__, __LINE__);
        return message;
    }

    Workspace workspace;
    TestConnection trips;
};

} // namespace

class tst_ImportGuards : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyLogBlocksNothing()
    {
        const GuardedFile file({});
        QCOMPARE(file.answers(reviewed()), u""_s);
    }

    void otherImportsBlockNothing()
    {
        const GuardedFile file({ofAnother});
        QCOMPARE(file.answers(reviewed()), u""_s);
    }

    void sameContentIsBlockedWhateverElseDiffers()
    {
        const GuardedFile file({ofSameContent});
        QCOMPARE(file.answers(reviewed()), sameContent);
    }

    void sameNameInThePayweekIsBlockedWhateverElseDiffers()
    {
        const GuardedFile file({ofSameName});
        QCOMPARE(file.answers(reviewed()), sameName);
    }

    void sameRowsOfTruckAndPayweekAreBlockedWhateverElseDiffers()
    {
        const GuardedFile file({ofSameRows});
        QCOMPARE(file.answers(reviewed()), sameRows);
    }

    void contentIsAskedFirstThenTheNameThenTheRows()
    {
        HistoryRow all = ofSameRows;
        all.pdfName = u"week16.pdf"_s;
        all.sourceHash = u"hash"_s;
        const GuardedFile file({all});
        QCOMPARE(file.answers(reviewed()),
                 u"Duplicate blocked: matching source content was already imported as history ID "
                 "1 on 2026-04-20 14:05:09 (payweek 04/18/2026, PDF week16.pdf)."_s);
        file.trips.execute(u"UPDATE settlement_import_log SET source_hash = 'changed'"_s);
        QCOMPARE(file.answers(reviewed()), sameName);
        file.trips.execute(u"UPDATE settlement_import_log SET pdf_name = 'other.pdf'"_s);
        QCOMPARE(file.answers(reviewed()), sameRows);
        file.trips.execute(u"UPDATE settlement_import_log SET payload_json = ''"_s);
        QCOMPARE(file.answers(reviewed()), u""_s);
    }

    void firstOfTwoMatchesIsTheOneNamed_data()
    {
        QTest::addColumn<HistoryRow>("logged");
        QTest::addColumn<QString>("answer");
        QTest::newRow("content") << ofSameContent << sameContent;
        QTest::newRow("name") << ofSameName << sameName;
        QTest::newRow("rows") << ofSameRows << sameRows;
    }

    void firstOfTwoMatchesIsTheOneNamed()
    {
        QFETCH(const HistoryRow, logged);
        QFETCH(const QString, answer);
        const GuardedFile file({logged, logged});
        QCOMPARE(file.answers(reviewed()), answer);
    }

    void importWithoutAHashIsNoMatchForAnother()
    {
        HistoryRow empty = ofAnother;
        empty.sourceHash = u""_s;
        HistoryRow blank = ofAnother;
        blank.sourceHash = u" "_s;
        const GuardedFile file({empty, blank});
        QCOMPARE(file.answers(reviewed(), u""_s), u""_s);
        QCOMPARE(file.answers(reviewed(), u" "_s), u""_s);
    }

    void nameIsComparedAsItIsWithoutItsFolder_data()
    {
        QTest::addColumn<QString>("pdfPath");
        QTest::addColumn<bool>("blocked");
        QTest::newRow("another folder") << u"/media/usb/week16.pdf"_s << true;
        QTest::newRow("no folder") << u"week16.pdf"_s << true;
        QTest::newRow("another case") << u"/home/driver/pay/Week16.pdf"_s << false;
        QTest::newRow("another ending") << u"/home/driver/pay/week16.PDF"_s << false;
        QTest::newRow("a blank before it") << u"/home/driver/pay/ week16.pdf"_s << false;
    }

    void nameIsComparedAsItIsWithoutItsFolder()
    {
        QFETCH(const QString, pdfPath);
        QFETCH(const bool, blocked);
        const GuardedFile file({ofSameName});
        SettlementParseResult settlement = reviewed();
        settlement.pdfPath = pdfPath;
        QCOMPARE(file.answers(settlement), blocked ? sameName : u""_s);
    }

    void blankPathIsANameLikeAnyOther()
    {
        const GuardedFile file({ofSameName});
        SettlementParseResult settlement = reviewed();
        settlement.pdfPath.clear();
        QCOMPARE(file.answers(settlement), u""_s);
        file.trips.execute(u"UPDATE settlement_import_log SET pdf_name = ''"_s);
        QCOMPARE(file.answers(settlement),
                 u"Duplicate blocked: PDF name '' was already imported for payweek 04/18/2026 as "
                 "history ID 1 on 2026-04-20 14:05:09."_s);
    }

    void payweekAndTruckAreTrimmedAndThenComparedAsTheyAre_data()
    {
        QTest::addColumn<QString>("payweek");
        QTest::addColumn<QString>("truck");
        QTest::addColumn<bool>("blocked");
        QTest::newRow("blanks around") << u" 04/18/2026\t"_s << u"\n512 "_s << true;
        QTest::newRow("another week") << u"04/25/2026"_s << u"512"_s << false;
        QTest::newRow("the same day in another form") << u"4/18/2026"_s << u"512"_s << false;
        QTest::newRow("another truck") << u"04/18/2026"_s << u"0512"_s << false;
        QTest::newRow("no truck") << u"04/18/2026"_s << u""_s << false;
    }

    void payweekAndTruckAreTrimmedAndThenComparedAsTheyAre()
    {
        QFETCH(const QString, payweek);
        QFETCH(const QString, truck);
        QFETCH(const bool, blocked);
        const GuardedFile file({ofSameRows});
        SettlementParseResult settlement = reviewed();
        settlement.payweek = payweek;
        settlement.truckNumber = truck;
        QCOMPARE(file.answers(settlement), blocked ? sameRows : u""_s);
    }

    void blanksAroundThePayweekDoNotHideTheName()
    {
        const GuardedFile file({ofSameName});
        SettlementParseResult settlement = reviewed();
        settlement.payweek = u" 04/18/2026\t"_s;
        QCOMPARE(file.answers(settlement), sameName);
    }

    void nameInAnotherPayweekIsNotBlocked()
    {
        const GuardedFile file({ofSameName});
        SettlementParseResult settlement = reviewed();
        settlement.payweek = u"04/25/2026"_s;
        QCOMPARE(file.answers(settlement), u""_s);
    }

    void missingTruckReadsAsBlank()
    {
        HistoryRow logged = ofSameRows;
        logged.truck = u""_s;
        const GuardedFile file({logged});
        SettlementParseResult settlement = reviewed();
        settlement.truckNumber = u"  "_s;
        QCOMPARE(file.answers(settlement),
                 u"Duplicate blocked: matching review rows were already imported for truck (blank) "
                 "/ payweek 04/18/2026 as history ID 1 on 2026-04-20 14:05:09 (PDF other.pdf)."_s);
    }

    void signatureIsLookedForInCompactJsonOnly_data()
    {
        QTest::addColumn<QString>("payload");
        QTest::addColumn<bool>("blocked");
        QTest::newRow("in the middle")
            << u"{\"a\":1,\"review_signature\":\"signed\",\"z\":2}"_s << true;
        QTest::newRow("a blank behind the colon")
            << u"{\"review_signature\": \"signed\"}"_s << false;
        QTest::newRow("the start of a longer one")
            << u"{\"review_signature\":\"signed too\"}"_s << false;
        QTest::newRow("under another key") << u"{\"source_hash\":\"signed\"}"_s << false;
    }

    void signatureIsLookedForInCompactJsonOnly()
    {
        QFETCH(const QString, payload);
        QFETCH(const bool, blocked);
        HistoryRow logged = ofSameRows;
        logged.payload = payload;
        const GuardedFile file({logged});
        QCOMPARE(file.answers(reviewed()), blocked ? sameRows : u""_s);
    }

    void percentSignsInANameStayAsTheyAre()
    {
        HistoryRow logged = ofSameName;
        logged.pdfName = u"%3 %2 %1.pdf"_s;
        const GuardedFile file({logged});
        SettlementParseResult settlement = reviewed();
        settlement.pdfPath = u"/home/driver/%3 %2 %1.pdf"_s;
        QCOMPARE(file.answers(settlement),
                 u"Duplicate blocked: PDF name '%3 %2 %1.pdf' was already imported for payweek "
                 "04/18/2026 as history ID 1 on 2026-04-20 14:05:09."_s);
    }

    void percentSignsInWhatTheContentIsKnownByStayAsTheyAre()
    {
        HistoryRow logged = ofSameContent;
        logged.payweek = u"%4 %2"_s;
        logged.pdfName = u"%3 %1.pdf"_s;
        const GuardedFile file({logged});
        QCOMPARE(file.answers(reviewed()),
                 u"Duplicate blocked: matching source content was already imported as history ID 1 "
                 "on 2026-04-20 14:05:09 (payweek %4 %2, PDF %3 %1.pdf)."_s);
    }

    void percentSignsInTruckAndPayweekStayAsTheyAre()
    {
        HistoryRow logged = ofSameRows;
        logged.truck = u"%2 %5"_s;
        logged.payweek = u"%4 %2"_s;
        const GuardedFile file({logged});
        SettlementParseResult settlement = reviewed();
        settlement.truckNumber = u"%2 %5"_s;
        settlement.payweek = u"%4 %2"_s;
        QCOMPARE(file.answers(settlement),
                 u"Duplicate blocked: matching review rows were already imported for truck %2 %5 / "
                 "payweek %4 %2 as history ID 1 on 2026-04-20 14:05:09 (PDF other.pdf)."_s);
    }

    void guardThatCannotBeAskedLeavesItToTheNext()
    {
        HistoryRow all = ofSameRows;
        all.pdfName = u"week16.pdf"_s;
        all.sourceHash = u"hash"_s;
        const GuardedFile file({all});
        file.trips.execute(u"ALTER TABLE settlement_import_log RENAME source_hash TO hash"_s);
        QCOMPARE(file.answers(reviewed()), sameName);
        file.trips.execute(u"ALTER TABLE settlement_import_log RENAME payload_json TO json"_s);
        QCOMPARE(file.answers(reviewed()), sameName);
        file.trips.execute(u"UPDATE settlement_import_log SET pdf_name = 'other.pdf'"_s);
        QCOMPARE(file.answers(reviewed()), u""_s);
    }

    void withoutALogNothingIsBlocked()
    {
        const GuardedFile file({});
        file.trips.execute(u"DROP TABLE settlement_import_log"_s);
        QCOMPARE(file.answers(reviewed()), u""_s);
    }
};

TEST_CLASS_WITHOUT_WINDOWS(tst_ImportGuards)
#include "tst_ImportGuards.moc"
