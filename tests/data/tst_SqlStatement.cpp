#include <QTest>
class tst_SqlStatement : public QObject { Q_OBJECT };
QTEST_MAIN(tst_SqlStatement)
#include "tst_SqlStatement.moc"
