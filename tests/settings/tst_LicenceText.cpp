#include "settings/LicenceText.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_LicenceText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCandidatesStandInTheirOrder()
    {
        const QStringList expected = {
            u"/opt/desk/EULA.txt"_s,
            u"/opt/desk/License.txt"_s,
            u"/opt/desk/LICENSE.txt"_s,
            u"/home/ann/EULA.txt"_s,
            u"/home/ann/License.txt"_s,
            u"/home/ann/LICENSE.txt"_s,
            u"/opt/desk/Installer/EULA.txt"_s,
            u"/opt/desk/../Installer/EULA.txt"_s,
            u"/opt/desk/../../Installer/EULA.txt"_s,
        };
        QCOMPARE(LicenceText::licenceCandidates(u"/opt/desk"_s, u"/home/ann"_s), expected);
    }

    void everyCandidateIsFoundInItsTurn()
    {
        const Workspace workspace;
        const QStringList inOrder = {
            u"opt/desk/EULA.txt"_s,
            u"opt/desk/License.txt"_s,
            u"opt/desk/LICENSE.txt"_s,
            u"ann/EULA.txt"_s,
            u"ann/License.txt"_s,
            u"ann/LICENSE.txt"_s,
            u"opt/desk/Installer/EULA.txt"_s,
            u"opt/Installer/EULA.txt"_s,
            u"Installer/EULA.txt"_s,
        };
        for (const QString &file : inOrder)
            workspace.makeFile(file, file.toUtf8());
        const QStringList candidates =
            LicenceText::licenceCandidates(workspace.path(u"opt/desk"_s), workspace.path(u"ann"_s));
        for (const QString &file : inOrder) {
            QCOMPARE(LicenceText::firstLicenceText(candidates), file);
            QVERIFY(QFile::remove(workspace.path(file)));
        }
        QCOMPARE(LicenceText::firstLicenceText(candidates), QString());
    }

    void theProgramsOwnFileComesFirstWhereverItIsStartedFrom()
    {
        const Workspace workspace;
        workspace.makeFile(u"EULA.txt"_s, "where it was started");
        workspace.makeFile(u"program/LICENSE.txt"_s, "beside the program");
        const QStringList candidates =
            LicenceText::licenceCandidates(workspace.path(u"program"_s), QDir::currentPath());
        QCOMPARE(LicenceText::firstLicenceText(candidates), u"beside the program"_s);
    }

    void aFileWithoutTextDoesNotCount_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("white space") << QByteArray(" \t\r\n\n ");
        QTest::newRow("byte order mark alone") << QByteArray("\xEF\xBB\xBF\n");
    }

    void aFileWithoutTextDoesNotCount()
    {
        QFETCH(const QByteArray, content);
        const Workspace workspace;
        const QString first = workspace.makeFile(u"EULA.txt"_s, content);
        const QString second = workspace.makeFile(u"License.txt"_s, "The agreement.");
        QCOMPARE(LicenceText::firstLicenceText({first}), QString());
        QCOMPARE(LicenceText::firstLicenceText({first, second}), u"The agreement."_s);
    }

    void aFolderOfThatNameDoesNotCount()
    {
        const Workspace workspace;
        const QString folder = workspace.path(u"EULA.txt"_s);
        QVERIFY(QDir().mkdir(folder));
        const QString file = workspace.makeFile(u"License.txt"_s, "The agreement.");
        QCOMPARE(LicenceText::firstLicenceText({folder, file}), u"The agreement."_s);
    }

    void theTextIsReadAsUtf8WithPlainLineEndsAndTrimmed()
    {
        const Workspace workspace;
        const QString file = workspace.makeFile(
            u"EULA.txt"_s, "\xEF\xBB\xBF\r\n  Copyright \xC2\xA9 <2026>\r\n\r\n  Use it.\r\n");
        QCOMPARE(LicenceText::firstLicenceText({file}), u"Copyright \u00A9 <2026>\n\n  Use it."_s);
    }

    void withoutCandidatesThereIsNoText()
    {
        QCOMPARE(LicenceText::firstLicenceText({}), QString());
    }
};

TEST_CLASS(tst_LicenceText)
#include "tst_LicenceText.moc"
