#include "pdfimport/ReviewedSettlement.h"
#include "pdfimport/review/ReviewRowEditor.h"
#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class EditorWindow
{
public:
    EditorWindow() { Person::shows(editor); }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *name) const
    {
        return editor.findChild<Widget *>(QLatin1StringView(name));
    }
    [[nodiscard]] QComboBox *dataset() const { return named<QComboBox>("reviewDataset"); }
    void types(const char *field, const QString &text) const
    {
        Person::types(named<QLineEdit>(field), text);
    }

    /// What the fields show, from top to bottom.
    [[nodiscard]] QStringList fields() const
    {
        QStringList shown = {named<QCheckBox>("reviewUse")->isChecked() ? u"on"_s : u"off"_s,
                             dataset()->currentText(),
                             named<QComboBox>("reviewRoute")->currentText()};
        for (const QLineEdit *field : editor.findChildren<QLineEdit *>())
            shown.append(field->text());
        return shown << named<QPlainTextEdit>("reviewNotes")->toPlainText();
    }

    ReviewRowEditor editor;
};

const QStringList cleared = {
    u"on"_s, u"Deduction Fuel"_s, u"fuel_detail"_s, u""_s, u""_s, u""_s, u""_s, u""_s, u""_s,
    u""_s};

QStringList entriesOf(const QComboBox *box)
{
    QStringList entries;
    for (int i = 0; i < box->count(); ++i)
        entries.append(box->itemText(i));
    return entries;
}

/// A layout from left to right, or from top to bottom: labels and buttons by their text.
QStringList partsOf(const QLayout *layout)
{
    QStringList parts;
    for (int i = 0; i < layout->count(); ++i) {
        const QWidget *widget = layout->itemAt(i)->widget();
        if (const auto *label = qobject_cast<const QLabel *>(widget))
            parts.append(label->text());
        else if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            parts.append(button->text());
        else
            parts.append(widget ? widget->objectName() : u"-"_s);
    }
    return parts;
}

} // namespace

class tst_ReviewRowEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsStandInTheirRows()
    {
        const Workspace workspace;
        const EditorWindow window;
        QLayout *layout = window.editor.layout();
        QCOMPARE(window.editor.title(), u"Selected Row Editor"_s);
        QCOMPARE(partsOf(layout->itemAt(0)->layout()),
                 QStringList({u"Use this row"_s, u"Dataset:"_s, u"reviewDataset"_s, u"Route:"_s,
                              u"reviewRoute"_s, u"-"_s}));
        QCOMPARE(partsOf(layout->itemAt(1)->layout()),
                 QStringList(
                     {u"Trip #:"_s, u"reviewTrip"_s, u"Description:"_s, u"reviewDescription"_s}));
        QCOMPARE(
            partsOf(layout->itemAt(2)->layout()),
            QStringList({u"Amount:"_s, u"reviewAmount"_s, u"Cost:"_s, u"reviewCost"_s,
                         u"Discount:"_s, u"reviewDiscount"_s, u"Gallons:"_s, u"reviewGallons"_s}));
        QCOMPARE(partsOf(layout).mid(3), QStringList({u"Source / Notes:"_s, u"reviewNotes"_s,
                                                      u"Save Editor Changes to Selected Row"_s}));
        QCOMPARE(qobject_cast<QBoxLayout *>(layout->itemAt(1)->layout())->stretch(3), 1);
        QCOMPARE(window.named<QPlainTextEdit>("reviewNotes")->minimumHeight(), 70);
    }

    void boxesOfferTheirEntriesAndNothingElse()
    {
        const Workspace workspace;
        const EditorWindow window;
        QCOMPARE(entriesOf(window.dataset()), QStringList({u"Deduction Fuel"_s, u"Manual Fuel"_s}));
        QCOMPARE(entriesOf(window.named<QComboBox>("reviewRoute")),
                 QStringList({u"fuel_detail"_s}));
        QVERIFY(!window.dataset()->isEditable());
        QVERIFY(!window.named<QComboBox>("reviewRoute")->isEditable());
    }

    void editorStartsAndIsClearedEmpty()
    {
        const Workspace workspace;
        EditorWindow window;
        QCOMPARE(window.fields(), cleared);
        FuelReviewRow row = switchedOff(truckFuelRow());
        row.dataset = u"Manual Fuel"_s;
        window.editor.showRow(row);
        QVERIFY(window.fields() != cleared);
        window.editor.clearFields();
        QCOMPARE(window.fields(), cleared);
    }

    void rowIsShownWithFixedDecimals()
    {
        const Workspace workspace;
        EditorWindow window;
        FuelReviewRow row = switchedOff(truckFuelRow());
        row.dataset = u"Manual Fuel"_s;
        row.tripNo = u" 4471203 "_s;
        window.editor.showRow(row);
        QCOMPARE(window.fields(),
                 QStringList({u"off"_s, u"Manual Fuel"_s, u"fuel_detail"_s, u" 4471203 "_s,
                              u"Truck Fuel"_s, u"412.80"_s, u"448.30"_s, u"-35.50"_s, u"118.276"_s,
                              u"4471203 DEDUCTION FUEL 412.80"_s}));
    }

    void datasetThatIsNoEntryLeavesTheBoxAsItWas_data()
    {
        QTest::addColumn<QString>("dataset");
        QTest::newRow("an empty one, whose Manual is no entry") << u""_s;
        QTest::newRow("an unknown one") << u"Trip Fuel Scan"_s;
    }

    void datasetThatIsNoEntryLeavesTheBoxAsItWas()
    {
        QFETCH(const QString, dataset);
        const Workspace workspace;
        EditorWindow window;
        FuelReviewRow row = truckFuelRow();
        row.dataset = dataset;
        for (const QString &last : {u"Manual Fuel"_s, u"Deduction Fuel"_s}) {
            Person::chooses(window.dataset(), last);
            window.editor.showRow(row);
            QCOMPARE(window.dataset()->currentText(), last);
            QCOMPARE(window.editor.edited(row).dataset, last);
        }
    }

    void routeIsAlwaysFuelDetail()
    {
        const Workspace workspace;
        EditorWindow window;
        const FuelReviewRow row = routedTo(u"trip_cost"_s, truckFuelRow());
        window.editor.showRow(row);
        QCOMPARE(window.named<QComboBox>("reviewRoute")->currentText(), u"fuel_detail"_s);
        QCOMPARE(window.editor.edited(row).route, u"fuel_detail"_s);
    }

    void whatIsTypedIsTrimmedIntoACopyOfTheRow()
    {
        const Workspace workspace;
        EditorWindow window;
        FuelReviewRow row = truckFuelRow();
        row.id = 7;
        window.editor.showRow(row);
        QTest::mouseClick(window.named<QCheckBox>("reviewUse"), Qt::LeftButton, {}, {8, 8});
        Person::chooses(window.dataset(), u"Manual Fuel"_s);
        window.types("reviewTrip", u"  4471999 "_s);
        window.types("reviewDescription", u" Def "_s);
        window.types("reviewAmount", u" $1,234.50 "_s);
        window.types("reviewGallons", u"5.125"_s);
        window.named<QPlainTextEdit>("reviewNotes")->setPlainText(u"\n by hand \n"_s);
        const FuelReviewRow edited = window.editor.edited(row);
        QCOMPARE(edited.id, 7);
        QCOMPARE(edited.enabled, false);
        QCOMPARE(edited.dataset, u"Manual Fuel"_s);
        QCOMPARE(edited.tripNo, u"4471999"_s);
        QCOMPARE(edited.description, u"Def"_s);
        QCOMPARE(edited.amount, 1234.5);
        QCOMPARE(edited.cost, 448.3);
        QCOMPARE(edited.discount, -35.5);
        QCOMPARE(edited.gallons, 5.125);
        QCOMPARE(edited.sourceLine, u"by hand"_s);
    }

    void numbersAreReadByTheMoneyTextRule_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("plain") << u"12.5"_s << 12.5;
        QTest::newRow("below zero") << u"-12.50"_s << -12.5;
        QTest::newRow("dollars and commas") << u" $1,234.50 "_s << 1234.5;
        QTest::newRow("empty") << u""_s << 0.0;
        QTest::newRow("only a dollar sign") << u"$"_s << 0.0;
        QTest::newRow("letters") << u"abc"_s << 0.0;
        QTest::newRow("in parentheses, which is no negative here") << u"(12.00)"_s << 0.0;
    }

    void numbersAreReadByTheMoneyTextRule()
    {
        QFETCH(const QString, text);
        QFETCH(const double, value);
        const Workspace workspace;
        EditorWindow window;
        window.editor.showRow(truckFuelRow());
        for (const char *field : {"reviewAmount", "reviewCost", "reviewDiscount", "reviewGallons"})
            window.types(field, text);
        const FuelReviewRow edited = window.editor.edited(truckFuelRow());
        QCOMPARE(edited.amount, value);
        QCOMPARE(edited.cost, value);
        QCOMPARE(edited.discount, value);
        QCOMPARE(edited.gallons, value);
    }

    void buttonAsksToSave()
    {
        const Workspace workspace;
        const EditorWindow window;
        const QSignalSpy asked(&window.editor, &ReviewRowEditor::saveRequested);
        Person::clicks(window.editor, u"Save Editor Changes to Selected Row"_s);
        QCOMPARE(asked.count(), 1);
    }

    void wheelOverABoxChangesNothing()
    {
        const Workspace workspace;
        const EditorWindow window;
        window.named<QLineEdit>("reviewTrip")->setFocus();
        Person::turnsWheelOver(window.dataset());
        QCOMPARE(window.dataset()->currentText(), u"Deduction Fuel"_s);
    }

    void tabLeavesTheNotes()
    {
        const Workspace workspace;
        const EditorWindow window;
        auto *notes = window.named<QPlainTextEdit>("reviewNotes");
        notes->setFocus();
        QTest::keyClick(notes, Qt::Key_Tab);
        QCOMPARE(window.editor.focusWidget(), window.named<QPushButton>("saveReviewRowButton"));
        QCOMPARE(notes->toPlainText(), QString());
    }
};

TEST_CLASS(tst_ReviewRowEditor)
#include "tst_ReviewRowEditor.moc"
