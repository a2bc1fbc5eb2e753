#include "app/WheelGuard.h"
#include "support/Person.h"
#include "support/Workspace.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A form that is higher than its window, with a guarded box in its middle.
class LongForm : public QScrollArea
{
public:
    LongForm()
    {
        auto *form = new QWidget;
        auto *layout = new QVBoxLayout(form);
        layout->addWidget(field);
        layout->addWidget(box);
        form->setMinimumHeight(3000);
        box->addItems({u"shipper"_s, u"receiver"_s, u"yard"_s});
        box->setCurrentIndex(1);
        guardFromWheel(box);
        setWidget(form);
        setWidgetResizable(true);
        Person::shows(*this);
        QVERIFY(QTest::qWaitForWindowActive(this));
        field->setFocus();
    }

    [[nodiscard]] bool isAtTop() const { return verticalScrollBar()->value() == 0; }

    QLineEdit *field = new QLineEdit;
    QComboBox *box = new QComboBox;
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
};

QTEST_MAIN(tst_WheelGuard)
#include "tst_WheelGuard.moc"
