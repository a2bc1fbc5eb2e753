#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/WheelGuard.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A form that is higher than its window, with guarded boxes in its middle.
class LongForm : public QScrollArea
{
public:
    LongForm()
    {
        auto *form = new QWidget;
        auto *layout = new QVBoxLayout(form);
        layout->addWidget(field);
        layout->addWidget(box);
        layout->addWidget(spinBox);
        form->setMinimumHeight(3000);
        box->addItems({u"shipper"_s, u"receiver"_s, u"yard"_s});
        box->setCurrentIndex(1);
        guardFromWheel(box);
        spinBox->setValue(6.5);
        guardFromWheel(spinBox);
        setWidget(form);
        setWidgetResizable(true);
        Person::shows(*this);
        QVERIFY(QTest::qWaitForWindowActive(this));
        field->setFocus();
    }

    [[nodiscard]] bool isAtTop() const { return verticalScrollBar()->value() == 0; }

    QLineEdit *field = new QLineEdit;
    QComboBox *box = new QComboBox;
    QDoubleSpinBox *spinBox = new QDoubleSpinBox;
};

} // namespace

class tst_WheelGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void overABoxWithoutTheFocusTheWheelScrollsTheForm()
    {
        const Workspace workspace;
        const LongForm form;
        QVERIFY(form.isAtTop());
        Person::turnsWheelOver(form.box);
        QCOMPARE(form.box->currentText(), u"receiver"_s);
        QVERIFY(!form.isAtTop());
        QVERIFY(form.field->hasFocus());
    }

    void overTheBoxInFocusTheWheelChangesItsValue()
    {
        const Workspace workspace;
        const LongForm form;
        form.box->setFocus();
        Person::turnsWheelOver(form.box);
        QCOMPARE(form.box->currentText(), u"yard"_s);
        QVERIFY(form.isAtTop());
    }

    void whenTheFocusGoesTheWheelScrollsAgain()
    {
        const Workspace workspace;
        const LongForm form;
        form.box->setFocus();
        form.field->setFocus();
        Person::turnsWheelOver(form.box);
        QCOMPARE(form.box->currentText(), u"receiver"_s);
        QVERIFY(!form.isAtTop());
    }

    void theWheelGivesNoFocusAndTabAndClickStillDo()
    {
        const Workspace workspace;
        const LongForm form;
        QCOMPARE(form.box->focusPolicy(), Qt::StrongFocus);
        QTest::keyClick(form.field, Qt::Key_Tab);
        QVERIFY(form.box->hasFocus());
        QTest::keyClick(form.box, Qt::Key_Up);
        QCOMPARE(form.box->currentText(), u"shipper"_s);
    }

    void spinBoxWithoutTheFocusKeepsItsValueAndTheFormScrolls()
    {
        const Workspace workspace;
        const LongForm form;
        Person::turnsWheelOver(form.spinBox);
        QCOMPARE(form.spinBox->value(), 6.5);
        QVERIFY(!form.isAtTop());
        QVERIFY(form.field->hasFocus());
    }

    void spinBoxInFocusTakesTheWheel()
    {
        const Workspace workspace;
        const LongForm form;
        form.spinBox->setFocus();
        Person::turnsWheelOver(form.spinBox);
        QCOMPARE(form.spinBox->value(), 5.5);
        QVERIFY(form.isAtTop());
    }

    void spinBoxTakesTheKeysAsBefore()
    {
        const Workspace workspace;
        const LongForm form;
        QCOMPARE(form.spinBox->focusPolicy(), Qt::StrongFocus);
        form.box->setFocus();
        QTest::keyClick(form.box, Qt::Key_Tab);
        QVERIFY(form.spinBox->hasFocus());
        QTest::keyClick(form.spinBox, Qt::Key_Up);
        QCOMPARE(form.spinBox->value(), 7.5);
    }
};

TEST_CLASS(tst_WheelGuard)
#include "tst_WheelGuard.moc"
