#include "samples/SqlScript.h"

#include "data/DatabaseLocator.h"
#include "data/SqlStatement.h"
#include "data/SqlTransaction.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

bool runStatements(const QSqlDatabase &database, const QStringList &statements, QString &error)
{
    SqlTransaction transaction(database);
    if (!transaction.begin(error))
        return false;
    for (const QString &statement : statements) {
        if (!runSql(database, statement, {}, error))
            return false;
    }
    return transaction.commit(error);
}

} // namespace

bool runSqlScript(const QString &scriptPath, const QString &databasePath, QString &error)
{
    QFile script(scriptPath);
    if (!script.open(QIODevice::ReadOnly | QIODevice::Text)) {
        error = scriptPath + ": "_L1 + script.errorString();
        return false;
    }
    static const QRegularExpression comment(u"^\\s*--.*$"_s, QRegularExpression::MultilineOption);
    static const QRegularExpression statementEnd(u";\\s*(\\n|$)"_s);
    const QString text = QString::fromUtf8(script.readAll()).remove(comment).trimmed();

    QFile(databasePath).open(QIODevice::Append); // an empty file is an empty database
    const QString connection = u"sql_script"_s;
    QSqlDatabase database;
    bool ok = DatabaseLocator::openNamedConnection(database, connection, databasePath, error);
    if (ok)
        ok = runStatements(database, text.split(statementEnd, Qt::SkipEmptyParts), error);
    DatabaseLocator::releaseNamedConnection(database, connection);
    return ok;
}
