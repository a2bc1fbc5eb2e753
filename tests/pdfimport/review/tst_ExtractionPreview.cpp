#include "pdfimport/SettlementParser.h"
#include "pdfimport/review/ExtractionPreview.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

SettlementParseResult twoPages()
{
    SettlementParseResult parsed;
    parsed.rawText = u"first\n\fsecond\n"_s;
    parsed.pageTexts = {u"first\n   page  of\ttwo\n"_s, u"second\n"_s};
    parsed.logLines = {u"one step"_s, u""_s, u"<b>another</b>"_s};
    return parsed;
}

QString boxText(const ExtractionPreview &preview, const QString &name)
{
    return preview.findChild<QPlainTextEdit *>(name)->toPlainText();
}

} // namespace

class tst_ExtractionPreview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void captionsStandAboveWhatTheyName()
    {
        const Workspace workspace;
        const ExtractionPreview preview;
        QCOMPARE(preview.title(), u"Extraction Preview"_s);
        QStringList parts;
        for (int i = 0; i < preview.layout()->count(); ++i) {
            const QWidget *widget = preview.layout()->itemAt(i)->widget();
            const auto *label = qobject_cast<const QLabel *>(widget);
            parts.append(label ? label->text() : widget->objectName());
        }
        QCOMPARE(parts, QStringList({u"Page-by-page preview:"_s, u"importPages"_s,
                                     u"Full extracted text:"_s, u"importText"_s, u"Pipeline log:"_s,
                                     u"importLog"_s}));
    }

    void partsAreForReadingAndNeverTooLow()
    {
        const Workspace workspace;
        const ExtractionPreview preview;
        const auto *pages = preview.findChild<QTableWidget *>();
        QCOMPARE(headers(pages), QStringList({u"Page"_s, u"Text Preview"_s}));
        QVERIFY(pages->horizontalHeader()->stretchLastSection());
        QCOMPARE(pages->minimumHeight(), 140);
        const auto *text = preview.findChild<QPlainTextEdit *>(u"importText"_s);
        QVERIFY(text->isReadOnly());
        QCOMPARE(text->minimumHeight(), 160);
        const auto *log = preview.findChild<QPlainTextEdit *>(u"importLog"_s);
        QVERIFY(log->isReadOnly());
        QCOMPARE(log->minimumHeight(), 100);
    }

    void pagesAreNumberedAndSimplified()
    {
        const Workspace workspace;
        ExtractionPreview preview;
        preview.showSettlement(twoPages());
        QCOMPARE(texts(preview.findChild<QTableWidget *>()),
                 QList<QStringList>({{u"1"_s, u"first page of two"_s}, {u"2"_s, u"second"_s}}));
    }

    void pageNumbersTakeNoMoreRoomThanTheyNeed()
    {
        const Workspace workspace;
        ExtractionPreview preview;
        preview.showSettlement(twoPages());
        const auto *pages = preview.findChild<QTableWidget *>();
        QVERIFY(pages->columnWidth(0) < pages->horizontalHeader()->defaultSectionSize());
    }

    void headerOfALongPageStaysInSight()
    {
        const Workspace workspace;
        const ExtractionPreview preview;
        const auto *pages = preview.findChild<QTableWidget *>();
        QCOMPARE(pages->horizontalHeader()->defaultAlignment(), Qt::AlignLeft | Qt::AlignVCenter);
    }

    void longPageIsCutBeforeItIsSimplified()
    {
        const Workspace workspace;
        ExtractionPreview preview;
        SettlementParseResult parsed;
        parsed.pageTexts = {QString(498, u' ') + u"abcdef"_s, QString(501, u'x')};
        preview.showSettlement(parsed);
        QCOMPARE(column(preview.findChild<QTableWidget *>(), u"Text Preview"_s),
                 QStringList({u"ab"_s, QString(500, u'x')}));
    }

    void textAndLogAreShownAsPlainText()
    {
        const Workspace workspace;
        ExtractionPreview preview;
        preview.showSettlement(twoPages());
        QCOMPARE(boxText(preview, u"importText"_s), u"first\n\fsecond\n"_s);
        QCOMPARE(boxText(preview, u"importLog"_s), u"one step\n\n<b>another</b>"_s);
    }

    void logReplacesTheLogAlone()
    {
        const Workspace workspace;
        ExtractionPreview preview;
        preview.showSettlement(twoPages());
        preview.showLog({u"later"_s});
        QCOMPARE(boxText(preview, u"importLog"_s), u"later"_s);
        QCOMPARE(boxText(preview, u"importText"_s), u"first\n\fsecond\n"_s);
        QCOMPARE(preview.findChild<QTableWidget *>()->rowCount(), 2);
    }

    void nothingEmptiesAllThree()
    {
        const Workspace workspace;
        ExtractionPreview preview;
        preview.showSettlement(twoPages());
        preview.showSettlement({});
        QCOMPARE(preview.findChild<QTableWidget *>()->rowCount(), 0);
        QCOMPARE(boxText(preview, u"importText"_s), QString());
        QCOMPARE(boxText(preview, u"importLog"_s), QString());
    }
};

TEST_CLASS(tst_ExtractionPreview)
#include "tst_ExtractionPreview.moc"
