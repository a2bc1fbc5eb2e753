#include <QTest>
class tst_MoneyText : public QObject { Q_OBJECT };
QTEST_MAIN(tst_MoneyText)
#include "tst_MoneyText.moc"
