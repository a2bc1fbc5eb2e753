#include "support/Person.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "trips/grids/GridHands.h"
#include "trips/grids/OfferedTexts.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastLength = 12;

OfferedTexts offeredCodes()
{
    OfferedTexts codes;
    codes.setList({u"DAL4"_s, u"KC1"_s});
    return codes;
}

/// A box that a test owns.
std::unique_ptr<QComboBox> madeBox(const OfferedTexts &offered, const QString &text)
{
    return std::unique_ptr<QComboBox>(offered.makeBox(text, leastLength));
}

} // namespace

class tst_OfferedTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsOfferedAtFirst()
    {
        const Workspace workspace;
        const OfferedTexts offered;
        QCOMPARE(offered.list(), QStringList());
        const auto box = madeBox(offered, u"KC1"_s);
        QCOMPARE(box->count(), 0);
        QCOMPARE(box->currentText(), u"KC1"_s);
    }

    void boxOffersTheTextsAndTakesAnyOther()
    {
        const Workspace workspace;
        const auto box = madeBox(offeredCodes(), {});
        QCOMPARE(offeredBy(box.get()), QStringList({u"DAL4"_s, u"KC1"_s}));
        QCOMPARE(box->isEditable(), true);
        QCOMPARE(box->insertPolicy(), QComboBox::NoInsert);
        QCOMPARE(box->minimumContentsLength(), 12);
        QCOMPARE(box->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
        QCOMPARE(box->focusPolicy(), Qt::StrongFocus);
    }

    void boxShowsItsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("index");
        QTest::newRow("an entry") << u"KC1"_s << u"KC1"_s << 1;
        QTest::newRow("in another case") << u"kc1"_s << u"KC1"_s << 1;
        QTest::newRow("blanks around") << u"  dal4 "_s << u"DAL4"_s << 0;
        QTest::newRow("no entry") << u" Joplin "_s << u"Joplin"_s << -1;
        QTest::newRow("start of an entry") << u"KC"_s << u"KC"_s << -1;
        QTest::newRow("pattern") << u"K*"_s << u"K*"_s << -1;
        QTest::newRow("empty") << u""_s << u""_s << -1;
        QTest::newRow("blanks") << u"   "_s << u""_s << -1;
    }

    void boxShowsItsText()
    {
        const Workspace workspace;
        QFETCH(const QString, text);
        const auto box = madeBox(offeredCodes(), text);
        QTEST(box->currentText(), "shown");
        QTEST(box->currentIndex(), "index");
        QCOMPARE(box->count(), 2);
    }

    void otherTextTakesTheEntrysPlace()
    {
        const Workspace workspace;
        const auto box = madeBox(offeredCodes(), u"KC1"_s);
        showInBox(box.get(), u"Joplin"_s);
        QCOMPARE(box->currentText(), u"Joplin"_s);
        QCOMPARE(box->currentIndex(), -1);
        showInBox(box.get(), {});
        QCOMPARE(box->currentText(), u""_s);
        QCOMPARE(offeredBy(box.get()), QStringList({u"DAL4"_s, u"KC1"_s}));
    }

    void textIsTypedInItsOwnLetters()
    {
        const Workspace workspace;
        const auto box = madeBox(offeredCodes(), {});
        Person::shows(*box);
        QCOMPARE(box->completer(), nullptr);
        Person::types(box->lineEdit(), u"kc1"_s);
        QTest::keyClick(box->lineEdit(), Qt::Key_Return);
        QCOMPARE(box->currentText(), u"kc1"_s);
    }

    void typedTextIsNotAddedToTheList()
    {
        const Workspace workspace;
        const auto box = madeBox(offeredCodes(), {});
        Person::shows(*box);
        Person::types(box->lineEdit(), u"Joplin"_s);
        QTest::keyClick(box->lineEdit(), Qt::Key_Return);
        QCOMPARE(box->currentText(), u"Joplin"_s);
        QCOMPARE(offeredBy(box.get()), QStringList({u"DAL4"_s, u"KC1"_s}));
    }

    void boxKeepsTheListItWasBuiltWith()
    {
        const Workspace workspace;
        OfferedTexts codes = offeredCodes();
        const auto older = madeBox(codes, u"KC1"_s);
        codes.setList({u"DAL4"_s, u"JOP2"_s, u"KC1"_s});
        const auto newer = madeBox(codes, u"KC1"_s);
        QCOMPARE(offeredBy(older.get()), QStringList({u"DAL4"_s, u"KC1"_s}));
        QCOMPARE(offeredBy(newer.get()), QStringList({u"DAL4"_s, u"JOP2"_s, u"KC1"_s}));
        QCOMPARE(older->currentText(), u"KC1"_s);
        codes.setList({});
        QCOMPARE(offeredBy(newer.get()), QStringList({u"DAL4"_s, u"JOP2"_s, u"KC1"_s}));
        QCOMPARE(madeBox(codes, {})->count(), 0);
    }

    void boxOutlivesTheTextsThatItOffers()
    {
        const Workspace workspace;
        std::optional<OfferedTexts> codes = offeredCodes();
        const auto box = madeBox(*codes, u"dal4"_s);
        codes.reset();
        QCOMPARE(offeredBy(box.get()), QStringList({u"DAL4"_s, u"KC1"_s}));
        QCOMPARE(box->currentText(), u"DAL4"_s);
    }

    void boxesShareOneListWhileItStaysTheSame()
    {
        const Workspace workspace;
        OfferedTexts codes = offeredCodes();
        const auto older = madeBox(codes, {});
        codes.setList({u"DAL4"_s, u"KC1"_s});
        const auto newer = madeBox(codes, {});
        QCOMPARE(newer->model(), older->model());
    }

    void wheelChangesNothingWithoutTheFocus()
    {
        const Workspace workspace;
        const auto box = madeBox(offeredCodes(), u"DAL4"_s);
        Person::shows(*box);
        box->clearFocus();
        Person::turnsWheelOver(box.get());
        QCOMPARE(box->currentText(), u"DAL4"_s);
    }
};

TEST_CLASS(tst_OfferedTexts)
#include "tst_OfferedTexts.moc"
