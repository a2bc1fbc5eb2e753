#include "app/BrindlepathApp.h"
#include "app/ClosingSignals.h"
#include "support/TestProgram.h"
#include "support/Workspace.h"

#include <QMessageBox>

#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The window, and a slot of it that asks two questions after the program was asked to end.
class AskingWindow
{
public:
    /// Runs the program to its end and gives its exit status.
    int runUntil(const std::function<void()> &askToEnd)
    {
        window.show();
        QMetaObject::invokeMethod(
            &window,
            [this, askToEnd] {
                askToEnd();
                for (int question = 0; question < 2; ++question)
                    answers.append(QMessageBox::question(&window, u"Delete"_s, u"Delete trip?"_s));
            },
            Qt::QueuedConnection);
        return QApplication::exec();
    }

    BrindlepathApp window;
    QList<QMessageBox::StandardButton> answers;
};

} // namespace

class tst_ClosingSignals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endOfASessionClosesTheWindowAndItsBoxes();
    void signalClosesTheWindowAndItsBoxes();
};

// What Qt's session manager sends when the session dies; Qt asks nobody before.
void tst_ClosingSignals::endOfASessionClosesTheWindowAndItsBoxes()
{
    const Workspace workspace;
    AskingWindow asking;
    const int status = asking.runUntil([] {
        const auto end = [] {
            QEvent quit(QEvent::Quit);
            QCoreApplication::sendEvent(qApp, &quit);
        };
        QMetaObject::invokeMethod(qApp, end, Qt::QueuedConnection);
    });
    QCOMPARE(status, 0);
    QCOMPARE(asking.answers.size(), 2);
    QVERIFY(!asking.answers.contains(QMessageBox::Yes));
    QVERIFY(!asking.window.isVisible());
}

// The last function: from the first signal on, every event loop of the process ends at once.
void tst_ClosingSignals::signalClosesTheWindowAndItsBoxes()
{
    const Workspace workspace;
    ClosingSignals::catchThem();
    ClosingSignals::closeWindowsOnThem();
    AskingWindow asking;
    QCOMPARE(asking.runUntil([] { std::raise(SIGTERM); }), 0);
    QCOMPARE(asking.answers.size(), 2);
    QVERIFY(!asking.answers.contains(QMessageBox::Yes));
    QVERIFY(!asking.window.isVisible());
}

TEST_CLASS(tst_ClosingSignals)

#include "tst_ClosingSignals.moc"
