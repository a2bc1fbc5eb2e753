#include "data/SqlStatement.h"

#include <QCoreApplication>
#include <QSqlDatabase>

#include <algorithm>
#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace {

bool runs(const QSqlDatabase &database, const QString &sql)
{
    QString error;
    if (!runSql(database, sql, {}, error))
        std::fprintf(stderr, "%s: %s\n", qPrintable(sql), qPrintable(error));
    return error.isEmpty();
}

// Waits for so long; -1 is for ever.
bool inputHasEnded(int milliseconds)
{
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    return ::poll(&input, 1, milliseconds) != 0;
}

} // namespace

// Opens the database that its first argument names, runs the others on it as SQL, tells that it has
// done so, and keeps the database open until its input ends. What stands behind "-repeat" it runs
// over and over until then.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const qsizetype repeat = arguments.indexOf(QStringLiteral("-repeat"));
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(arguments.at(1));
    database.open();
    const auto run = [&database](const QString &sql) { return runs(database, sql); };
    const QStringList once = arguments.mid(2, repeat < 0 ? -1 : repeat - 2);
    if (!std::all_of(once.cbegin(), once.cend(), run))
        return 1;
    std::putchar('r');
    std::fflush(stdout);
    const QStringList repeated = repeat < 0 ? QStringList() : arguments.mid(repeat + 1);
    while (!inputHasEnded(repeated.isEmpty() ? -1 : 1))
        std::all_of(repeated.cbegin(), repeated.cend(), run);
    database.close();
    return 0;
}
