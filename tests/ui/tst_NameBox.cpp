#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/NameBox.h"

#include <QAbstractItemView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A box that offers three names, with another field below it to go to.
class NameWindow : public QWidget
{
public:
    NameWindow()
        : box(new NameBox(this))
        , next(new QLineEdit(this))
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(box);
        layout->addWidget(next);
        box->addItems({u"Permit"_s, u"Tire Fund"_s, u"Tolls"_s});
        box->setCurrentIndex(-1);
        Person::shows(*this);
        activateWindow();
    }

    void types(const QString &text) const { Person::types(box->lineEdit(), text); }
    void presses(Qt::Key key) const { QTest::keyClick(box, key); }

    /// The name at which the open list stands; empty where none is open.
    [[nodiscard]] QString listStandsAt() const
    {
        return box->view()->isVisible() ? box->view()->currentIndex().data().toString() : QString();
    }

    NameBox *box;
    QLineEdit *next;
};

} // namespace

class tst_NameBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyNameCanBeTypedAndIsNotAddedToTheList()
    {
        const Workspace workspace;
        const NameWindow view;
        QVERIFY(view.box->isEditable());
        QCOMPARE(view.box->insertPolicy(), QComboBox::NoInsert);
        view.types(u"Scale"_s);
        view.presses(Qt::Key_Return);
        QCOMPARE(view.box->currentText(), u"Scale"_s);
        QCOMPARE(view.box->count(), 3);
    }

    void typedNameStandsInItsOwnLetters_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("shorter, Return") << u"Tire"_s << Qt::Key_Return;
        QTest::newRow("shorter, Enter") << u"Tire"_s << Qt::Key_Enter;
        QTest::newRow("shorter, Tab") << u"Tire"_s << Qt::Key_Tab;
        QTest::newRow("in another case, Return") << u"TOLLS"_s << Qt::Key_Return;
        QTest::newRow("in another case, Tab") << u"tolls"_s << Qt::Key_Tab;
        QTest::newRow("in another case, back") << u"tolls"_s << Qt::Key_Backtab;
    }

    void typedNameStandsInItsOwnLetters()
    {
        QFETCH(const QString, typed);
        QFETCH(const Qt::Key, key);
        const Workspace workspace;
        const NameWindow view;
        view.types(typed);
        view.presses(key);
        QCOMPARE(view.box->currentText(), typed);
    }

    void nothingComesUpWhileANameIsTyped()
    {
        const Workspace workspace;
        const NameWindow view;
        view.types(u"Ti"_s);
        QCOMPARE(QApplication::activePopupWidget(), nullptr);
        QCOMPARE(view.box->lineEdit()->selectedText(), QString());
        view.presses(Qt::Key_Tab);
        QVERIFY(view.next->hasFocus());
    }

    void listOpensAtTheNameThatBeginsWithTheText_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("name");
        QTest::newRow("down") << Qt::Key_Down << u"To"_s << u"Tolls"_s;
        QTest::newRow("up") << Qt::Key_Up << u"ti"_s << u"Tire Fund"_s;
        QTest::newRow("page down") << Qt::Key_PageDown << u"Tolls"_s << u"Tolls"_s;
        QTest::newRow("page up") << Qt::Key_PageUp << u"t"_s << u"Tire Fund"_s;
        QTest::newRow("no text") << Qt::Key_Down << u""_s << u"Permit"_s;
        QTest::newRow("no such name") << Qt::Key_Down << u"Scale"_s << u""_s;
    }

    void listOpensAtTheNameThatBeginsWithTheText()
    {
        QFETCH(const Qt::Key, key);
        QFETCH(const QString, typed);
        const Workspace workspace;
        const NameWindow view;
        view.types(typed);
        view.presses(key);
        QTEST(view.listStandsAt(), "name");
        QCOMPARE(view.box->currentText(), typed);
        QTest::keyClick(view.box->view(), Qt::Key_Escape);
        QVERIFY(!view.box->view()->isVisible());
        QCOMPARE(view.box->currentText(), typed);
    }

    void nameIsChosenFromTheListAndCanBeChanged()
    {
        const Workspace workspace;
        const NameWindow view;
        view.types(u"Ti"_s);
        view.presses(Qt::Key_Down);
        QTest::keyClick(view.box->view(), Qt::Key_Return);
        QCOMPARE(view.box->currentText(), u"Tire Fund"_s);
        view.presses(Qt::Key_End);
        QTest::keyClicks(view.box->lineEdit(), u" II"_s);
        view.presses(Qt::Key_Tab);
        QCOMPARE(view.box->currentText(), u"Tire Fund II"_s);
    }

    void listWithoutNamesDoesNotOpen()
    {
        const Workspace workspace;
        const NameWindow view;
        view.box->clear();
        view.types(u"Scale"_s);
        view.presses(Qt::Key_Down);
        QVERIFY(!view.box->view()->isVisible());
        QCOMPARE(view.box->currentText(), u"Scale"_s);
    }

    void wheelChangesNothingEvenWithTheFocus()
    {
        const Workspace workspace;
        const NameWindow view;
        view.types(u"Scale"_s);
        Person::turnsWheelOver(view.box->lineEdit());
        QCOMPARE(view.box->currentText(), u"Scale"_s);
    }
};

TEST_CLASS(tst_NameBox)
#include "tst_NameBox.moc"
