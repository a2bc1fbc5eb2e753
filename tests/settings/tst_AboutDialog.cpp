#include "settings/AboutDialog.h"
#include "settings/ProductFacts.h"
#include "support/DialogRobot.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>
#include <QTextEdit>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Stands in for the system's browser.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(u"https"_s, this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(u"https"_s); }
    Q_DISABLE_COPY_MOVE(Browser)

    QStringList opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened.append(url.toString()); }
};

QLabel *label(const QDialog &dialog, const QString &name)
{
    return dialog.findChild<QLabel *>(name);
}

QTextEdit *licenceBox(const QDialog &dialog)
{
    return dialog.findChild<QTextEdit *>(u"licenceText"_s);
}

void opens(QDialog &dialog)
{
    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
}

} // namespace

class tst_AboutDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAtItsSizeAndKeepsALeastSize()
    {
        const Workspace workspace;
        AboutDialog dialog;
        QCOMPARE(dialog.windowTitle(), u"About Brindlepath Desk"_s);
        QCOMPARE(dialog.size(), QSize(620, 520));
        QCOMPARE(dialog.minimumSize(), QSize(520, 420));
        opens(dialog);
        QCOMPARE(dialog.size(), QSize(620, 520));
    }

    void growsWhereLargeTextNeedsIt()
    {
        const Workspace workspace;
        const QFont usual = QApplication::font();
        const auto restore = qScopeGuard([&usual] { QApplication::setFont(usual); });
        QFont large = usual;
        large.setPointSize(17);
        QApplication::setFont(large);
        AboutDialog dialog;
        opens(dialog);
        QCOMPARE(dialog.width(), 620);
        QVERIFY(dialog.height() > 520);
        QCOMPARE(dialog.minimumSize(), QSize(520, 420));
        for (const QLabel *each : dialog.findChildren<QLabel *>())
            QVERIFY2(each->height() >= each->heightForWidth(each->width()),
                     qPrintable(each->objectName()));
    }

    void readsFromTopToBottom()
    {
        const Workspace workspace;
        const AboutDialog dialog;
        QStringList names;
        for (const QLabel *each : dialog.findChildren<QLabel *>())
            names.append(each->objectName());
        QCOMPARE(names, QStringList({u"displayNameLabel"_s, u"editionLabel"_s, u"purposeLabel"_s,
                                     u"copyrightLabel"_s, u"websiteLabel"_s, u"versionLabel"_s,
                                     u"licenceCaption"_s}));
        QCOMPARE(label(dialog, u"displayNameLabel"_s)->text(), u"Brindlepath Desk"_s);
        QCOMPARE(label(dialog, u"editionLabel"_s)->text(), u"Desktop Edition"_s);
        QCOMPARE(label(dialog, u"purposeLabel"_s)->text(),
                 u"Professional software for trucking trip management, settlement management, "
                 u"reporting, and transportation data analysis."_s);
        QCOMPARE(label(dialog, u"licenceCaption"_s)->text(), u"License / EULA"_s);
    }

    void theProductsNameIsLargeAndBold()
    {
        const Workspace workspace;
        const AboutDialog dialog;
        const QFont name = label(dialog, u"displayNameLabel"_s)->font();
        QVERIFY(name.bold());
        QCOMPARE(name.pointSize(), QFont().pointSize() + 6);
        const QFont caption = label(dialog, u"licenceCaption"_s)->font();
        QVERIFY(caption.bold());
        QCOMPARE(caption.pointSize(), QFont().pointSize());
    }

    void theFactsWrapInAFrame()
    {
        const Workspace workspace;
        const AboutDialog dialog;
        const auto *panel = dialog.findChild<QFrame *>(u"productPanel"_s);
        QCOMPARE(panel->frameShape(), QFrame::StyledPanel);
        for (const QString &name : {u"editionLabel"_s, u"purposeLabel"_s, u"copyrightLabel"_s,
                                    u"websiteLabel"_s, u"versionLabel"_s}) {
            QVERIFY2(label(dialog, name)->wordWrap(), qPrintable(name));
            QCOMPARE(label(dialog, name)->parentWidget(), panel);
        }
    }

    void theMarginsAndGapsAreThoseOfTheProduct()
    {
        const Workspace workspace;
        const AboutDialog dialog;
        QCOMPARE(dialog.layout()->contentsMargins(), QMargins(18, 18, 18, 18));
        QCOMPARE(dialog.layout()->spacing(), 12);
        const QLayout *panel = dialog.findChild<QFrame *>(u"productPanel"_s)->layout();
        QCOMPARE(panel->contentsMargins(), QMargins(12, 12, 12, 12));
        QCOMPARE(panel->spacing(), 6);
        QCOMPARE(panel->itemAt(2)->sizeHint().height(), 4);
    }

    void theCopyrightStandsAboveTheRights()
    {
        const Workspace workspace;
        const AboutDialog dialog;
        const QLabel *copyright = label(dialog, u"copyrightLabel"_s);
        QCOMPARE(copyright->textFormat(), Qt::RichText);
        QCOMPARE(copyright->text(),
                 u"Copyright \u00A9 2026 Brindle Path LLC<br>All rights reserved."_s);
    }

    void theVersionHasTheCompilersDateAndTime()
    {
        const Workspace workspace;
        const AboutDialog dialog;
        const QRegularExpression form(u"^Version: 2026\\.07\\.02\nBuild date: "
                                      u"[A-Z][a-z]{2} [ 1-3]\\d 20\\d\\d \\d\\d:\\d\\d:\\d\\d$"_s);
        const QString text = label(dialog, u"versionLabel"_s)->text();
        QVERIFY2(form.match(text).hasMatch(), qPrintable(text));
    }

    void theVersionIsTheOneThatIsPackaged()
    {
        QCOMPARE(ProductFacts::version, QStringLiteral(BRINDLEPATH_PACKAGE_VERSION));
    }

    void aClickOnTheWebsiteOpensTheBrowser()
    {
        const Workspace workspace;
        const Browser browser;
        AboutDialog dialog;
        opens(dialog);
        QLabel *website = label(dialog, u"websiteLabel"_s);
        const int middle = website->height() / 2;
        QTest::mouseClick(website, Qt::LeftButton, {}, {4, middle});
        QCOMPARE(browser.opened, QStringList());
        const int link = website->fontMetrics().horizontalAdvance(u"Website: "_s) + 8;
        QTest::mouseClick(website, Qt::LeftButton, {}, {link, middle});
        QCOMPARE(browser.opened, QStringList(u"https://brindlepath.example"_s));
    }

    void theWebsiteOpensFromTheKeyboardToo()
    {
        const Workspace workspace;
        const Browser browser;
        AboutDialog dialog;
        opens(dialog);
        QLabel *website = label(dialog, u"websiteLabel"_s);
        QCOMPARE(dialog.focusWidget(), website);
        QTest::keyClick(website, Qt::Key_Tab);
        QTest::keyClick(website, Qt::Key_Return);
        QCOMPARE(browser.opened, QStringList(u"https://brindlepath.example"_s));
        QVERIFY(dialog.isVisible());
    }

    void theWebsiteCanBeSelectedWithTheMouse()
    {
        const Workspace workspace;
        AboutDialog dialog;
        opens(dialog);
        QLabel *website = label(dialog, u"websiteLabel"_s);
        QTest::mouseDClick(website, Qt::LeftButton, {}, {8, website->height() / 2});
        QCOMPARE(website->selectedText(), u"Website"_s);
    }

    void tabGoesFromTheWebsiteOverTheAgreementToClose()
    {
        const Workspace workspace;
        AboutDialog dialog;
        opens(dialog);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QCOMPARE(dialog.focusWidget(), licenceBox(dialog));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        const auto *buttons = dialog.findChild<QDialogButtonBox *>(u"buttons"_s);
        QCOMPARE(dialog.focusWidget(), buttons->button(QDialogButtonBox::Close));
    }

    void showsTheAgreementOfTheCurrentFolder()
    {
        const Workspace workspace;
        workspace.makeFile(u"EULA.txt"_s, "\nUse it well.\n\n");
        const AboutDialog dialog;
        QCOMPARE(licenceBox(dialog)->toPlainText(), u"Use it well."_s);
    }

    void agreementBesideTheProgramComesFirst()
    {
        const Workspace workspace;
        workspace.makeFile(u"EULA.txt"_s, "From the current folder.");
        const QString beside = QCoreApplication::applicationDirPath() + u"/EULA.txt"_s;
        const auto removeIt = qScopeGuard([&beside] { QFile::remove(beside); });
        QFile file(beside);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("From beside the program.");
        file.close();
        const AboutDialog dialog;
        QCOMPARE(licenceBox(dialog)->toPlainText(), u"From beside the program."_s);
    }

    void anEmptyAgreementGivesWayToTheNext()
    {
        const Workspace workspace;
        workspace.makeFile(u"EULA.txt"_s, {});
        workspace.makeFile(u"License.txt"_s, "The second.");
        const AboutDialog dialog;
        QCOMPARE(licenceBox(dialog)->toPlainText(), u"The second."_s);
    }

    void angleBracketsShowAsTheyStand()
    {
        const Workspace workspace;
        workspace.makeFile(u"EULA.txt"_s, "<b>You</b> & <name>");
        const AboutDialog dialog;
        QCOMPARE(licenceBox(dialog)->toPlainText(), u"<b>You</b> & <name>"_s);
        QVERIFY(!licenceBox(dialog)->acceptRichText());
    }

    void withoutAnAgreementItSaysWhereToPutOne()
    {
        const Workspace workspace;
        const AboutDialog dialog;
        QCOMPARE(licenceBox(dialog)->toPlainText(),
                 u"EULA.txt was not found next to the application executable.\n"
                 u"\n"
                 u"Place EULA.txt in the same folder as BrindlepathApp.exe so this license viewer "
                 u"can display it.\n"
                 u"\n"
                 u"Brindlepath Desk\n"
                 u"Copyright \u00A9 2026 Brindle Path LLC\n"
                 u"All rights reserved."_s);
    }

    void theAgreementCannotBeEdited()
    {
        const Workspace workspace;
        workspace.makeFile(u"EULA.txt"_s, "Use it well.");
        AboutDialog dialog;
        opens(dialog);
        QTest::keyClicks(licenceBox(dialog), u"not "_s);
        QCOMPARE(licenceBox(dialog)->toPlainText(), u"Use it well."_s);
    }

    void theAgreementTakesTheRoomOfALargerWindow()
    {
        const Workspace workspace;
        AboutDialog dialog;
        opens(dialog);
        dialog.resize(620, 700);
        QTRY_VERIFY(licenceBox(dialog)->height() > 190);
        const int agreement = licenceBox(dialog)->height();
        const int panel = dialog.findChild<QFrame *>(u"productPanel"_s)->height();
        dialog.resize(620, 800);
        QTRY_COMPARE(licenceBox(dialog)->height(), agreement + 100);
        QCOMPARE(dialog.findChild<QFrame *>(u"productPanel"_s)->height(), panel);
        QCOMPARE(licenceBox(dialog)->minimumHeight(), 190);
    }

    void closeClosesTheModalDialog()
    {
        const Workspace workspace;
        DialogRobot robot;
        robot.expectDialog(u"About Brindlepath Desk"_s).press(u"Close"_s);
        AboutDialog dialog;
        QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(robot.seen().size(), 1);
    }

    void escapeClosesItToo()
    {
        const Workspace workspace;
        AboutDialog dialog;
        opens(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    }
};

TEST_CLASS(tst_AboutDialog)
#include "tst_AboutDialog.moc"
