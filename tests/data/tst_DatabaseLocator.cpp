#include <QTest>
class tst_DatabaseLocator : public QObject { Q_OBJECT };
QTEST_MAIN(tst_DatabaseLocator)
#include "tst_DatabaseLocator.moc"
