#include "locations/LocationForm.h"
#include "locations/LocationRows.h"
#include "support/Person.h"
#include "support/TestProgram.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList fieldNames = {
    u"locationCodeField"_s,     u"locationNameField"_s,      u"locationStreetField"_s,
    u"locationCityField"_s,     u"locationStateField"_s,     u"locationZipField"_s,
    u"locationLatitudeField"_s, u"locationLongitudeField"_s, u"locationNotes"_s};

QLineEdit *line(const LocationForm &form, int field)
{
    return form.findChild<QLineEdit *>(fieldNames.at(field));
}

QPlainTextEdit *notes(const LocationForm &form)
{
    return form.findChild<QPlainTextEdit *>();
}

/// The names of the widgets that Tab goes through, from the code on.
QStringList tabOrder(const LocationForm &form)
{
    QStringList names;
    line(form, 0)->setFocus();
    for (qsizetype i = 0; i < fieldNames.size(); ++i) {
        QWidget *focus = form.window()->focusWidget();
        names.append(focus->objectName());
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    return names;
}

} // namespace

class tst_LocationForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsStandInTheirOrder()
    {
        const Workspace workspace;
        const LocationForm form;
        const auto *layout = qobject_cast<const QFormLayout *>(form.layout());
        QStringList labels;
        QStringList names;
        for (int row = 0; row < layout->rowCount(); ++row) {
            QWidget *field = layout->itemAt(row, QFormLayout::FieldRole)->widget();
            names.append(field->objectName());
            labels.append(qobject_cast<QLabel *>(layout->labelForField(field))->text());
        }
        QCOMPARE(form.title(), u"Location Details"_s);
        QCOMPARE(labels, QStringList({u"Code:"_s, u"Name:"_s, u"Street:"_s, u"City:"_s, u"State:"_s,
                                      u"Zip:"_s, u"Latitude:"_s, u"Longitude:"_s, u"Notes:"_s}));
        QCOMPARE(names, fieldNames);
    }

    void everyLabelNamesItsField()
    {
        const Workspace workspace;
        const LocationForm form;
        QStringList named;
        for (const QLabel *label : form.findChildren<QLabel *>())
            named.append(label->buddy() ? label->buddy()->objectName() : label->text());
        QCOMPARE(named, fieldNames);
    }

    void tabGoesFromTheCodeToTheNotesAndOn()
    {
        const Workspace workspace;
        LocationForm form;
        Person::shows(form);
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QCOMPARE(tabOrder(form), fieldNames);
        QCOMPARE(notes(form)->toPlainText(), QString()); // no Tab was typed into it
        QVERIFY(!notes(form)->hasFocus());
    }

    void shownLocationStandsInItsFields()
    {
        const Workspace workspace;
        LocationForm form;
        form.showLocation(albany);
        for (int field = 0; field < 8; ++field)
            QCOMPARE(line(form, field)->text(), albany.at(field));
        QCOMPARE(notes(form)->toPlainText(), u"No parking"_s);
        QCOMPARE(form.location(), albany);
    }

    void missingTextLeavesItsFieldEmpty()
    {
        const Workspace workspace;
        LocationForm form;
        form.showLocation(albany);
        form.showLocation({u"DAL4"_s, u"Yard"_s});
        QCOMPARE(form.location(), QStringList({u"DAL4"_s, u"Yard"_s}) + QStringList(7, u""_s));
        form.showLocation({});
        QCOMPARE(form.location(), nothing);
    }

    void textsAreGivenAsTyped()
    {
        const Workspace workspace;
        LocationForm form;
        Person::shows(form);
        Person::types(line(form, 0), u" kc 1 "_s);
        Person::types(line(form, 6), u"39,1"_s);
        QTest::keyClicks(notes(form), u"Gate 4"_s);
        QTest::keyClick(notes(form), Qt::Key_Return);
        QTest::keyClicks(notes(form), u" call ahead "_s);
        QCOMPARE(form.location(), QStringList({u" kc 1 "_s, u""_s, u""_s, u""_s, u""_s, u""_s,
                                               u"39,1"_s, u""_s, u"Gate 4\n call ahead "_s}));
    }

    void codeAloneIsTrimmed()
    {
        const Workspace workspace;
        LocationForm form;
        form.showLocation({u" \tALB1 "_s, u" Dock 1 "_s});
        QCOMPARE(form.code(), u"ALB1"_s);
        QCOMPARE(form.location().first(2), QStringList({u" \tALB1 "_s, u" Dock 1 "_s}));
        form.showLocation({u"   "_s});
        QCOMPARE(form.code(), QString());
    }

    void textComesBackAsItWasShown_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("quotes") << u"O'Neil's \"Dock\""_s;
        QTest::newRow("markup") << u"<b>Dock</b> &amp;"_s;
        QTest::newRow("emoji") << u"\U0001F69B Pi\u00F1on 東京"_s;
        QTest::newRow("ten thousand letters") << QString(10'000, u'n');
        QTest::newRow("placeholders") << u"%1 ?"_s;
    }

    void textComesBackAsItWasShown()
    {
        QFETCH(const QString, text);
        const Workspace workspace;
        LocationForm form;
        form.showLocation(QStringList(9, text));
        QCOMPARE(form.location(), QStringList(9, text));
    }

    void lockedFormTakesNoKeys()
    {
        const Workspace workspace;
        LocationForm form;
        Person::shows(form);
        form.showLocation(albany);
        form.setReadOnly(true);
        for (int field = 0; field < 8; ++field)
            Person::types(line(form, field), u"7"_s);
        QTest::keyClicks(notes(form), u"7"_s);
        QCOMPARE(form.location(), albany);
    }

    void unlockedFormTakesThemAgain()
    {
        const Workspace workspace;
        LocationForm form;
        Person::shows(form);
        form.setReadOnly(true);
        form.setReadOnly(false);
        for (int field = 0; field < 8; ++field)
            Person::types(line(form, field), u"7"_s);
        QTest::keyClicks(notes(form), u"7"_s);
        QCOMPARE(form.location(), QStringList(9, u"7"_s));
    }

    void focusGoesToTheCodeAndToTheName()
    {
        const Workspace workspace;
        LocationForm form;
        Person::shows(form);
        form.focusName();
        QCOMPARE(form.focusWidget()->objectName(), u"locationNameField"_s);
        form.focusCode();
        QCOMPARE(form.focusWidget()->objectName(), u"locationCodeField"_s);
    }
};

TEST_CLASS(tst_LocationForm)
#include "tst_LocationForm.moc"
