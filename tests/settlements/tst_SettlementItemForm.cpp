#include "settlements/SettlementItemForm.h"
#include "support/Person.h"
#include "support/TableReaders.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The form in a window, as a person has it before them.
class FormWindow
{
public:
    FormWindow()
        : form(new SettlementItemForm)
    {
        window.setCentralWidget(form);
        Person::shows(window);
    }
    Q_DISABLE_COPY_MOVE(FormWindow)

    [[nodiscard]] QComboBox *kind() const { return named<QComboBox>("settlementItemKind"); }
    [[nodiscard]] QComboBox *name() const { return named<QComboBox>("settlementItemName"); }
    [[nodiscard]] QLineEdit *amount() const { return named<QLineEdit>("settlementItemAmount"); }

    void types(const QString &text) const { Person::types(name()->lineEdit(), text); }

    /// From top to bottom, as it is read.
    [[nodiscard]] QStringList shown() const
    {
        return {named<QLabel>("settlementItemId")->text(), kind()->currentText(),
                name()->currentText(), amount()->text()};
    }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *objectName) const
    {
        return form->findChild<Widget *>(QLatin1StringView(objectName));
    }

    QMainWindow window;
    SettlementItemForm *form;
};

} // namespace

/// The fields of one settlement item.
class tst_SettlementItemForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formBeginsWithNoItem()
    {
        const Workspace workspace;
        const FormWindow view;
        QCOMPARE(view.form->title(), u"Settlement Item Editor"_s);
        QCOMPARE(view.shown(), QStringList({u"(no item selected)"_s, u"revenue"_s, u""_s, u""_s}));
        QCOMPARE(view.form->selectedItemId(), 0);
        QCOMPARE(view.form->kind(), u"revenue"_s);
        QCOMPARE(view.form->name(), QString());
        QCOMPARE(view.form->amount(), 0.0);
    }

    void everyFieldHasItsLabel()
    {
        const Workspace workspace;
        const FormWindow view;
        const auto *rows = qobject_cast<QFormLayout *>(view.form->layout());
        QStringList labels;
        QStringList fields;
        for (int row = 0; row < rows->rowCount(); ++row) {
            const QWidget *label = rows->itemAt(row, QFormLayout::LabelRole)->widget();
            labels.append(qobject_cast<const QLabel *>(label)->text());
            fields.append(rows->itemAt(row, QFormLayout::FieldRole)->widget()->objectName());
        }
        QCOMPARE(labels, QStringList({u"Selected ID:"_s, u"Kind:"_s, u"Name:"_s, u"Amount:"_s}));
        QCOMPARE(fields, QStringList({u"settlementItemId"_s, u"settlementItemKind"_s,
                                      u"settlementItemName"_s, u"settlementItemAmount"_s}));
    }

    void kindIsOneOfTwo()
    {
        const Workspace workspace;
        const FormWindow view;
        QVERIFY(!view.kind()->isEditable());
        QCOMPARE(offeredBy(view.kind()), QStringList({u"revenue"_s, u"expense"_s}));
        Person::chooses(view.kind(), u"expense"_s);
        QCOMPARE(view.form->kind(), u"expense"_s);
    }

    void nameIsTypedFreelyAndNotAddedToTheList()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit"_s, u"Tolls"_s});
        QVERIFY(view.name()->isEditable());
        QCOMPARE(view.name()->minimumWidth(), 220);
        view.types(u"  Scale ticket "_s);
        QTest::keyClick(view.name()->lineEdit(), Qt::Key_Return);
        QCOMPARE(view.form->name(), u"Scale ticket"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Permit"_s, u"Tolls"_s}));
    }

    void nameIsTypedInItsOwnLetters()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit renewal"_s});
        QCOMPARE(view.name()->completer(), nullptr);
        view.types(u"permit Renewal"_s);
        QTest::keyClick(view.name()->lineEdit(), Qt::Key_Return);
        QCOMPARE(view.form->name(), u"permit Renewal"_s);
    }

    void amountIsReadAsMoney_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("dollars");
        QTest::newRow("plain") << u"12.5"_s << 12.5;
        QTest::newRow("as money") << u" $1,234.50 "_s << 1234.5;
        QTest::newRow("below zero") << u"-$12.00"_s << -12.0;
        QTest::newRow("empty") << u""_s << 0.0;
        QTest::newRow("blank") << u"   "_s << 0.0;
        QTest::newRow("no number") << u"abc"_s << 0.0;
        QTest::newRow("number and more") << u"12.5 dollars"_s << 0.0;
        QTest::newRow("dollar sign alone") << u"$"_s << 0.0;
    }

    void amountIsReadAsMoney()
    {
        QFETCH(const QString, typed);
        QFETCH(const double, dollars);
        const Workspace workspace;
        const FormWindow view;
        Person::types(view.amount(), typed);
        QCOMPARE(view.form->amount(), dollars);
        QCOMPARE(view.amount()->text(), typed);
    }

    void shownItemFillsTheForm()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->showItem(42, u" Expense "_s, u"Permit"_s, u" -$1,234.50 "_s);
        QCOMPARE(view.shown(), QStringList({u"42"_s, u"expense"_s, u"Permit"_s, u"-1234.50"_s}));
        QCOMPARE(view.form->selectedItemId(), 42);
        QCOMPARE(view.form->amount(), -1234.5);
    }

    void itemOfAnotherKindLeavesTheKindAsItWas()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->showItem(1, u"expense"_s, u"Permit"_s, u"$1.00"_s);
        view.form->showItem(2, u"other"_s, u"Scale"_s, u"$2.00"_s);
        QCOMPARE(view.shown(), QStringList({u"2"_s, u"expense"_s, u"Scale"_s, u"2.00"_s}));
        view.form->showItem(3, u""_s, u"Wash"_s, u"$3.00"_s);
        QCOMPARE(view.form->kind(), u"expense"_s);
    }

    void shownNameTakesTheOfferedSpelling()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit"_s, u"Tolls"_s});
        view.form->showItem(1, u"expense"_s, u"TOLLS"_s, u"$1.00"_s);
        QCOMPARE(view.form->name(), u"Tolls"_s);
        QCOMPARE(view.name()->currentIndex(), 1);
        view.form->showItem(2, u"expense"_s, u"Toll"_s, u"$1.00"_s);
        QCOMPARE(view.form->name(), u"Toll"_s);
        QCOMPARE(view.name()->currentIndex(), -1);
    }

    void nameWithAWildcardIsNoPattern()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit"_s, u"Tolls"_s});
        view.form->showItem(1, u"expense"_s, u"P*"_s, u"$1.00"_s);
        QCOMPARE(view.form->name(), u"P*"_s);
    }

    void newItemEmptiesTheFormAndTakesTheKeyboardToTheName()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit"_s, u"Tolls"_s});
        view.form->showItem(42, u"expense"_s, u"Permit"_s, u"$12.00"_s);
        view.amount()->setFocus();
        view.form->startNewItem();
        QCOMPARE(view.shown(), QStringList({u"(new item)"_s, u"revenue"_s, u""_s, u""_s}));
        QCOMPARE(view.form->selectedItemId(), 0);
        QVERIFY(view.name()->hasFocus() || view.name()->lineEdit()->hasFocus());
        QVERIFY(!view.amount()->hasFocus());
        QCOMPARE(offeredBy(view.name()), QStringList({u"Permit"_s, u"Tolls"_s}));
    }

    void typedNameOutlastsTheOneThatIsOffered()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit"_s});
        view.types(u" Scale "_s);
        view.form->offerNames({u"Bonus"_s, u"Tolls"_s});
        QCOMPARE(view.name()->currentText(), u"Scale"_s);
        QCOMPARE(offeredBy(view.name()), QStringList({u"Bonus"_s, u"Tolls"_s}));
        view.form->offerNames({});
        QCOMPARE(view.name()->currentText(), u"Scale"_s);
        QCOMPARE(offeredBy(view.name()), QStringList());
    }

    void typedNameTakesTheSpellingThatIsOffered()
    {
        const Workspace workspace;
        const FormWindow view;
        view.types(u"tolls"_s);
        view.form->offerNames({u"Bonus"_s, u"Tolls"_s});
        QCOMPARE(view.name()->currentText(), u"Tolls"_s);
        QCOMPARE(view.name()->currentIndex(), 1);
    }

    void offeredNamesFillInNothingByThemselves()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit"_s, u"Tolls"_s});
        QCOMPARE(view.name()->currentText(), QString());
    }

    void offeringNamesIsNoChangeOfTheName()
    {
        const Workspace workspace;
        const FormWindow view;
        view.types(u"Scale"_s);
        QStringList heard;
        connect(view.name(), &QComboBox::currentTextChanged, this,
                [&heard](const QString &text) { heard.append(text); });
        view.form->offerNames({u"Permit"_s});
        QCOMPARE(heard, QStringList());
        view.types(u"Toll"_s);
        QCOMPARE(heard.last(), u"Toll"_s);
    }

    void idIsWrittenAsANumber()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->setSelectedItemId(7);
        QCOMPARE(view.shown().first(), u"7"_s);
        QCOMPARE(view.form->selectedItemId(), 7);
    }

    void wheelOverTheFormChangesNothing()
    {
        const Workspace workspace;
        const FormWindow view;
        view.form->offerNames({u"Permit"_s, u"Tolls"_s});
        view.form->showItem(1, u"revenue"_s, u"Permit"_s, u"$1.00"_s);
        view.amount()->setFocus();
        Person::turnsWheelOver(view.kind());
        Person::turnsWheelOver(view.name());
        QCOMPARE(view.shown(), QStringList({u"1"_s, u"revenue"_s, u"Permit"_s, u"1.00"_s}));
    }
};

TEST_CLASS(tst_SettlementItemForm)
#include "tst_SettlementItemForm.moc"
