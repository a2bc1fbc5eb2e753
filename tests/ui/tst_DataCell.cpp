#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/DataCell.h"

#include <QTableWidget>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using Form = DataCell::Form;

Q_DECLARE_METATYPE(DataCell::Form)

namespace {

const QList<Form> numberForms = {Form::Number, Form::Money, Form::MoneyPerMile, Form::MoneyPerHour};

/// The texts in the order in which a column of that form sorts them.
QStringList sorted(Form form, const QStringList &raw, Qt::SortOrder order = Qt::AscendingOrder)
{
    QTableWidget table(static_cast<int>(raw.size()), 1);
    for (int row = 0; row < table.rowCount(); ++row)
        table.setItem(row, 0, new DataCell(form, raw.at(row)));
    table.sortItems(0, order);
    QStringList sortedTexts;
    for (const QStringList &row : texts(&table))
        sortedTexts += row;
    return sortedTexts;
}

} // namespace

class tst_DataCell : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberIsShownInTheFormOfItsColumn_data()
    {
        QTest::addColumn<Form>("form");
        QTest::addColumn<QString>("shown");
        QTest::newRow("text") << Form::Text << u"1234.5"_s;
        QTest::newRow("number") << Form::Number << u"1234.5"_s;
        QTest::newRow("money") << Form::Money << u"$1,234.50"_s;
        QTest::newRow("money by the mile") << Form::MoneyPerMile << u"$1,234.50/mi"_s;
        QTest::newRow("money by the hour") << Form::MoneyPerHour << u"$1,234.50/hr"_s;
    }

    void numberIsShownInTheFormOfItsColumn()
    {
        QFETCH(const Form, form);
        const Workspace workspace;
        const DataCell cell(form, u"1234.5"_s);
        QTEST(cell.text(), "shown");
        QCOMPARE(cell.data(DataCell::rawTextRole), QVariant(u"1234.5"_s));
    }

    void numberIsReadFromWhateverStandsInTheFile_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<QString>("shown");
        QTest::newRow("number") << u"12"_s << u"$12.00"_s;
        QTest::newRow("dollars") << u" $1,234.50 "_s << u"$1,234.50"_s;
        QTest::newRow("sign ahead") << u"-$3"_s << u"-$3.00"_s;
        QTest::newRow("sign behind the dollar") << u"$-3"_s << u"-$3.00"_s;
        QTest::newRow("by the mile") << u"1.25/mi"_s << u"$1.25"_s;
        QTest::newRow("by the hour") << u"31.25 /HR"_s << u"$31.25"_s;
        QTest::newRow("miles") << u"600 Mi"_s << u"$600.00"_s;
        QTest::newRow("hours") << u"10hr"_s << u"$10.00"_s;
        QTest::newRow("exponent") << u"1e3"_s << u"$1,000.00"_s;
        QTest::newRow("negative zero") << u"-0"_s << u"$0.00"_s;
        QTest::newRow("a fraction of a cent below zero") << u"-0.001"_s << u"-$0.00"_s;
    }

    void numberIsReadFromWhateverStandsInTheFile()
    {
        QFETCH(const QString, raw);
        const Workspace workspace;
        const DataCell cell(Form::Money, raw);
        QTEST(cell.text(), "shown");
        QCOMPARE(cell.data(DataCell::rawTextRole), QVariant(raw));
    }

    void whatIsNoNumberShowsAsItStands_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::newRow("word") << u"abc"_s;
        QTest::newRow("word with blanks") << u" n/a "_s;
        QTest::newRow("range") << u"1.25 - 1.50"_s;
        QTest::newRow("another currency") << u"12 EUR"_s;
        QTest::newRow("NULL") << u""_s;
        QTest::newRow("dollar sign alone") << u"$"_s;
        QTest::newRow("unit alone") << u"/mi"_s;
        QTest::newRow("not a number") << u"nan"_s;
        QTest::newRow("infinity") << u"inf"_s;
        QTest::newRow("infinity below zero") << u"-INF"_s;
        QTest::newRow("more than a number holds") << u"1e999"_s;
    }

    void whatIsNoNumberShowsAsItStands()
    {
        QFETCH(const QString, raw);
        const Workspace workspace;
        for (const Form form : numberForms) {
            const DataCell cell(form, raw);
            QCOMPARE(cell.text(), raw);
            QCOMPARE(cell.data(DataCell::rawTextRole), QVariant(raw));
        }
    }

    void plainNumbersKeepTheirWriting()
    {
        const Workspace workspace;
        for (const QString &raw : {u" 1,600 "_s, u"$5"_s, u"007"_s, u"1.50/mi"_s})
            QCOMPARE(DataCell(Form::Number, raw).text(), raw);
    }

    void numbersStandToTheRightAndTextDoesNot()
    {
        const Workspace workspace;
        for (const Form form : numberForms) {
            QCOMPARE(DataCell(form, u"1"_s).textAlignment(), Qt::AlignRight | Qt::AlignVCenter);
            QCOMPARE(DataCell(form, u"n/a"_s).textAlignment(), Qt::AlignRight | Qt::AlignVCenter);
        }
        QCOMPARE(DataCell(Form::Text, u"1"_s).textAlignment(), 0);
    }

    void numbersSortByTheirValue_data()
    {
        QTest::addColumn<Form>("form");
        QTest::addColumn<QStringList>("up");
        QTest::newRow("number") << Form::Number << QStringList({u"-5"_s, u"900"_s, u"$10,000"_s});
        QTest::newRow("money") << Form::Money
                               << QStringList({u"-$5.00"_s, u"$900.00"_s, u"$10,000.00"_s});
        QTest::newRow("money by the mile")
            << Form::MoneyPerMile
            << QStringList({u"-$5.00/mi"_s, u"$900.00/mi"_s, u"$10,000.00/mi"_s});
        QTest::newRow("money by the hour")
            << Form::MoneyPerHour
            << QStringList({u"-$5.00/hr"_s, u"$900.00/hr"_s, u"$10,000.00/hr"_s});
    }

    void numbersSortByTheirValue()
    {
        QFETCH(const Form, form);
        QFETCH(const QStringList, up);
        const Workspace workspace;
        const QStringList raw = {u"900"_s, u"$10,000"_s, u"-5"_s};
        QCOMPARE(sorted(form, raw), up);
        QCOMPARE(sorted(form, raw, Qt::DescendingOrder),
                 QStringList({up.at(2), up.at(1), up.at(0)}));
    }

    void textSortsAsTextEvenWhereItIsANumber()
    {
        const Workspace workspace;
        QCOMPARE(sorted(Form::Text, {u"Permit"_s, u"9"_s, u"10"_s}),
                 QStringList({u"10"_s, u"9"_s, u"Permit"_s}));
    }

    void textAmongNumbersStandsBehindThem()
    {
        const Workspace workspace;
        const QStringList raw = {u"#5"_s, u"10"_s, u""_s, u"9"_s, u"5x"_s};
        QCOMPARE(sorted(Form::Number, raw),
                 QStringList({u"9"_s, u"10"_s, u""_s, u"#5"_s, u"5x"_s}));
        QCOMPARE(sorted(Form::Number, raw, Qt::DescendingOrder),
                 QStringList({u"5x"_s, u"#5"_s, u""_s, u"10"_s, u"9"_s}));
    }

    void everyOrderOfTheSameRowsSortsAlike()
    {
        const Workspace workspace;
        QStringList raw = {u"#5"_s, u"10"_s, u"5x"_s, u"9"_s};
        std::sort(raw.begin(), raw.end());
        do {
            QCOMPARE(sorted(Form::Number, raw), QStringList({u"9"_s, u"10"_s, u"#5"_s, u"5x"_s}));
        } while (std::next_permutation(raw.begin(), raw.end()));
    }

    void cellOfAnotherKindIsComparedAsText()
    {
        const Workspace workspace;
        const QTableWidgetItem other(u"10"_s);
        QVERIFY(!(DataCell(Form::Number, u"9"_s) < other));
        QVERIFY(DataCell(Form::Number, u"1"_s) < other);
    }

    void equalNumbersStandNeitherBeforeNorBehindEachOther()
    {
        const Workspace workspace;
        const DataCell one(Form::Money, u"$5"_s);
        const DataCell other(Form::Money, u"5.00"_s);
        QVERIFY(!(one < other));
        QVERIFY(!(other < one));
    }
};

TEST_CLASS(tst_DataCell)
#include "tst_DataCell.moc"
