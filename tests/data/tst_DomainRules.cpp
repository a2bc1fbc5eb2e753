#include <QTest>
class tst_DomainRules : public QObject { Q_OBJECT };
QTEST_MAIN(tst_DomainRules)
#include "tst_DomainRules.moc"
