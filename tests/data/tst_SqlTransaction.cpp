#include <QTest>
class tst_SqlTransaction : public QObject { Q_OBJECT };
QTEST_MAIN(tst_SqlTransaction)
#include "tst_SqlTransaction.moc"
