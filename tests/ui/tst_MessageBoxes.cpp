#include "support/TestProgram.h"
#include "support/Workspace.h"
#include "ui/MessageBoxes.h"

#include <QLabel>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_MessageBoxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepMessageBoxesPlain(); }
    void boxShowsMarkupAsItStands();
    void otherLabelsKeepTheirFormat();
};

void tst_MessageBoxes::boxShowsMarkupAsItStands()
{
    const Workspace workspace;
    QMessageBox box(QMessageBox::Warning, u"Trip"_s, u"<b>7"_s);
    box.setInformativeText(u"<i>8"_s);
    box.show();
    QCOMPARE(box.findChild<QLabel *>(u"qt_msgbox_label"_s)->textFormat(), Qt::PlainText);
    QCOMPARE(box.findChild<QLabel *>(u"qt_msgbox_informativelabel"_s)->textFormat(), Qt::PlainText);
}

void tst_MessageBoxes::otherLabelsKeepTheirFormat()
{
    const Workspace workspace;
    QLabel label(u"<b>7</b>"_s);
    label.show();
    QCOMPARE(label.textFormat(), Qt::AutoText);
}

TEST_CLASS(tst_MessageBoxes)

#include "tst_MessageBoxes.moc"
