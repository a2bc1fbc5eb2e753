#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/TripForm.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_TripForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsStandInTheOrderOfATrip()
    {
        const Workspace workspace;
        const TripForm form;
        const auto *rows = qobject_cast<QFormLayout *>(form.layout());
        QStringList labels;
        for (int row = 0; row < rows->rowCount(); ++row) {
            const QLayoutItem *item = rows->itemAt(row, QFormLayout::LabelRole);
            labels.append(qobject_cast<QLabel *>(item->widget())->text());
        }
        QCOMPARE(labels,
                 QStringList({u"Loaded Trip ID:"_s, u"Trip #:"_s, u"Payweek:"_s, u"Empty Miles:"_s,
                              u"Loaded Miles:"_s, u"Linehaul:"_s, u"FUSU:"_s, u"Carrier %:"_s,
                              u"Trip Hours:"_s, u"Net / Hour:"_s}));
        QCOMPARE(form.title(), u"Trip Form"_s);
    }

    void everyFieldIsNamedByItsLabel()
    {
        const Workspace workspace;
        const TripForm form;
        QWidgetList fieldsWithLabel;
        for (const QLabel *label : form.findChildren<QLabel *>()) {
            if (qobject_cast<QLineEdit *>(label->buddy()))
                fieldsWithLabel.append(label->buddy());
        }
        QCOMPARE(fieldsWithLabel.size(), 7);
        QCOMPARE(form.findChildren<QLineEdit *>().size(), 7);
    }

    void startsEmptyForANewTrip()
    {
        const Workspace workspace;
        const TripForm form;
        QCOMPARE(form.currentTripId(), 0);
        QCOMPARE(labelText(form, "tripIdLabel"), u"(new trip)"_s);
        QCOMPARE(labelText(form, "tripHoursLabel"), u"0.00"_s);
        QCOMPARE(labelText(form, "netPerHourLabel"), u"$0.00"_s);
        for (const QLineEdit *field : form.findChildren<QLineEdit *>())
            QCOMPARE(field->text(), u""_s);
    }

    void labelSaysWhichTripIsLoaded()
    {
        const Workspace workspace;
        TripForm form;
        form.setTripId(1042);
        QCOMPARE(labelText(form, "tripIdLabel"), u"1042"_s);
        QCOMPARE(form.currentTripId(), 1042);
        form.setTripId(0);
        QCOMPARE(labelText(form, "tripIdLabel"), u"(new trip)"_s);
        QCOMPARE(form.currentTripId(), 0);
    }

    void labelThatIsNoNumberMeansNoTrip_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("tripId");
        QTest::newRow("blank") << u""_s << 0;
        QTest::newRow("new") << u"(new trip)"_s << 0;
        QTest::newRow("words") << u"seven"_s << 0;
        QTest::newRow("a fraction") << u"7.5"_s << 0;
        QTest::newRow("number") << u"7"_s << 7;
    }

    void labelThatIsNoNumberMeansNoTrip()
    {
        const Workspace workspace;
        const TripForm form;
        QFETCH(const QString, text);
        form.findChild<QLabel *>(u"tripIdLabel"_s)->setText(text);
        QTEST(form.currentTripId(), "tripId");
    }

    void typedTextIsReadAsItIs_data()
    {
        QTest::addColumn<QString>("objectName");
        QTest::addColumn<TripForm::Field>("field");
        QTest::newRow("trip number") << u"tripNoField"_s << TripForm::TripNo;
        QTest::newRow("payweek") << u"payweekField"_s << TripForm::Payweek;
        QTest::newRow("empty miles") << u"emptyMilesField"_s << TripForm::EmptyMiles;
        QTest::newRow("loaded miles") << u"loadedMilesField"_s << TripForm::LoadedMiles;
        QTest::newRow("linehaul") << u"linehaulField"_s << TripForm::Linehaul;
        QTest::newRow("FUSU") << u"fusuField"_s << TripForm::Fusu;
        QTest::newRow("carrier percent") << u"carrierPercentField"_s << TripForm::CarrierPercent;
    }

    void typedTextIsReadAsItIs()
    {
        const Workspace workspace;
        TripForm form;
        QFETCH(const QString, objectName);
        QFETCH(const TripForm::Field, field);
        Person::shows(form);
        Person::types(form.findChild<QLineEdit *>(objectName), u" $1,234.50 "_s);
        QCOMPARE(form.text(field), u" $1,234.50 "_s);
        form.setText(field, u"12"_s);
        QCOMPARE(form.findChild<QLineEdit *>(objectName)->text(), u"12"_s);
    }

    void hoursReadAsARange()
    {
        const Workspace workspace;
        TripForm form;
        form.showHours({13.0, 73.08, true, 11.0, 13.0, 73.08, 86.36});
        QCOMPARE(labelText(form, "tripHoursLabel"), u"11.00 - 13.00"_s);
        QCOMPARE(labelText(form, "netPerHourLabel"), u"$73.08 - $86.36"_s);
    }

    void clearingLeavesANewTrip()
    {
        const Workspace workspace;
        TripForm form;
        Person::shows(form);
        form.setTripId(7);
        form.showHours({13.0, 73.08, false, 13.0, 13.0, 73.08, 73.08});
        for (QLineEdit *field : form.findChildren<QLineEdit *>())
            Person::types(field, u"12"_s);
        form.clear();
        QCOMPARE(form.currentTripId(), 0);
        QCOMPARE(labelText(form, "tripIdLabel"), u"(new trip)"_s);
        QCOMPARE(labelText(form, "tripHoursLabel"), u"0.00"_s);
        QCOMPARE(labelText(form, "netPerHourLabel"), u"$0.00"_s);
        for (const QLineEdit *field : form.findChildren<QLineEdit *>())
            QCOMPARE(field->text(), u""_s);
    }

    void tabGoesFromFieldToFieldInOrder()
    {
        const Workspace workspace;
        TripForm form;
        Person::shows(form);
        form.focusTripNo();
        QStringList visited;
        for (int press = 0; press < TripForm::fieldCount; ++press) {
            visited.append(form.focusWidget()->objectName());
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(visited, QStringList({u"tripNoField"_s, u"payweekField"_s, u"emptyMilesField"_s,
                                       u"loadedMilesField"_s, u"linehaulField"_s, u"fusuField"_s,
                                       u"carrierPercentField"_s}));
    }

private:
    static QString labelText(const TripForm &form, const char *objectName)
    {
        return form.findChild<QLabel *>(QLatin1StringView(objectName))->text();
    }
};

TEST_CLASS(tst_TripForm)
#include "tst_TripForm.moc"
