#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/items/EditableHistoryComboDelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A table with one name, which is edited with the names used before on offer.
class NameTable : public QTableWidget
{
public:
    explicit NameTable(const QString &name)
        : QTableWidget(1, 1)
    {
        names.setList({u"Detention"_s, u"Layover"_s});
        setItem(0, 0, new QTableWidgetItem(name));
        setItemDelegateForColumn(0, new EditableHistoryComboDelegate(names, this));
        Person::shows(*this);
    }

    /// Opens the cell for editing.
    QComboBox *edit()
    {
        Person::clicksCell(this, 0, 0);
        editItem(item(0, 0));
        return viewport()->findChild<QComboBox *>();
    }

    [[nodiscard]] QString text() const { return item(0, 0)->text(); }

    OfferedTexts names;
};

QStringList offered(const QComboBox *box)
{
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts.append(box->itemText(index));
    return texts;
}

} // namespace

class tst_EditableHistoryComboDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editorOffersTheNamesAndTakesAnyOther()
    {
        const Workspace workspace;
        NameTable table(u"Layover"_s);
        const QComboBox *box = table.edit();
        QCOMPARE(offered(box), QStringList({u"Detention"_s, u"Layover"_s}));
        QCOMPARE(box->isEditable(), true);
        QCOMPARE(box->insertPolicy(), QComboBox::NoInsert);
        QCOMPARE(box->minimumContentsLength(), 18);
        QCOMPARE(box->minimumWidth(), 260);
        QCOMPARE(box->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }

    void editorStartsWithTheName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("index");
        QTest::newRow("of the list") << u"Layover"_s << u"Layover"_s << 1;
        QTest::newRow("in any case") << u"LAYOVER"_s << u"Layover"_s << 1;
        QTest::newRow("blanks around") << u"  detention "_s << u"Detention"_s << 0;
        QTest::newRow("not of the list") << u" Scale "_s << u"Scale"_s << -1;
        QTest::newRow("the beginning of one") << u"Lay"_s << u"Lay"_s << -1;
        QTest::newRow("none") << u""_s << u""_s << -1;
    }

    void editorStartsWithTheName()
    {
        const Workspace workspace;
        QFETCH(const QString, name);
        NameTable table(name);
        const QComboBox *box = table.edit();
        QTEST(box->currentText(), "shown");
        QTEST(box->currentIndex(), "index");
    }

    void chosenNameIsWritten()
    {
        const Workspace workspace;
        NameTable table(u"Layover"_s);
        QComboBox *box = table.edit();
        Person::chooses(box, u"Detention"_s);
        QTest::keyClick(box, Qt::Key_Return);
        QTRY_COMPARE(table.text(), u"Detention"_s);
    }

    void typedNameIsWrittenTrimmedAndOfferedToNoOne()
    {
        const Workspace workspace;
        NameTable table(u"Layover"_s);
        QComboBox *box = table.edit();
        Person::types(box->lineEdit(), u"  Pallet return "_s);
        QCOMPARE(box->count(), 2);
        QTest::keyClick(box, Qt::Key_Return);
        QTRY_COMPARE(table.text(), u"Pallet return"_s);
        QCOMPARE(table.names.list(), QStringList({u"Detention"_s, u"Layover"_s}));
    }

    void typedNameIsNotMadeAnOlderOne_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("shorter") << u"Lay"_s;
        QTest::newRow("in other letters") << u"LAYOVER"_s;
    }

    void typedNameIsNotMadeAnOlderOne()
    {
        const Workspace workspace;
        QFETCH(const QString, typed);
        NameTable table(u""_s);
        QComboBox *box = table.edit();
        QCOMPARE(box->completer(), nullptr);
        Person::types(box->lineEdit(), typed);
        QTest::keyClick(box, Qt::Key_Return);
        QTRY_COMPARE(table.text(), typed);
    }

    void escapeKeepsTheName()
    {
        const Workspace workspace;
        NameTable table(u"Layover"_s);
        QComboBox *box = table.edit();
        Person::types(box->lineEdit(), u"Scale"_s);
        QTest::keyClick(box, Qt::Key_Escape);
        QCoreApplication::processEvents();
        QCOMPARE(table.viewport()->isAncestorOf(QApplication::focusWidget()), false);
        QCOMPARE(table.text(), u"Layover"_s);
    }

    void delegateKeepsTheListThatItGot()
    {
        const Workspace workspace;
        NameTable table(u"Layover"_s);
        table.names.setList({u"Scale"_s});
        QCOMPARE(offered(table.edit()), QStringList({u"Detention"_s, u"Layover"_s}));
    }
};

TEST_CLASS(tst_EditableHistoryComboDelegate)
#include "tst_EditableHistoryComboDelegate.moc"
