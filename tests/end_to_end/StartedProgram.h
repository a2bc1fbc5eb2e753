#pragma once

#include "support/Workspace.h"

#include <QProcess>
#include <QTest>

/// The program itself, as the system starts it, on the files of a workspace and without a screen.
class StartedProgram : public QProcess
{
public:
    explicit StartedProgram(const Workspace &workspace)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                           workspace.path(QStringLiteral("settings")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"),
                           workspace.path(QStringLiteral("run")));
        setProcessEnvironment(environment);
        setWorkingDirectory(workspace.path(QStringLiteral(".")));
        setProcessChannelMode(MergedChannels);
        start(QStringLiteral(PROGRAM), QStringList());
        if (!waitForStarted())
            QTest::qFail(qPrintable(errorString()), __FILE__, __LINE__);
    }

    /// What the program wrote. What Qt says of a platform without a screen is none of its words.
    QString words()
    {
        return QString::fromUtf8(
            readAll().replace("This plugin does not support propagateSizeHints()\n", QByteArray()));
    }
};
