#include <QTest>
class tst_OneCallConnection : public QObject { Q_OBJECT };
QTEST_MAIN(tst_OneCallConnection)
#include "tst_OneCallConnection.moc"
