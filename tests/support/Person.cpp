#include "support/Person.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

void fail(const QString &message)
{
    QTest::qFail(qPrintable(message), __FILE__, __LINE__);
}

} // namespace

namespace Person {

void shows(QWidget &page)
{
    page.resize(1280, 800);
    page.show();
    if (!QTest::qWaitForWindowExposed(&page))
        fail(u"The page never came up."_s);
}

void clicks(const QWidget &page, const QString &buttonText)
{
    for (QAbstractButton *button : page.findChildren<QAbstractButton *>()) {
        if (button->text() == buttonText && button->isVisible() && button->isEnabled()) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    fail(u"There is no button \"%1\" to click."_s.arg(buttonText));
}

void clicksCell(QTableWidget *table, int row, int column)
{
    QTableWidgetItem *item = table->item(row, column);
    if (!item) {
        fail(u"There is no cell at row %1, column %2."_s.arg(row).arg(column));
        return;
    }
    table->scrollToItem(item);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualItemRect(item).center());
}

void clicksHeader(QTableWidget *table, int column)
{
    QHeaderView *header = table->horizontalHeader();
    const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {x, header->height() / 2});
}

void types(QLineEdit *field, const QString &text)
{
    field->setFocus();
    field->selectAll();
    if (text.isEmpty())
        QTest::keyClick(field, Qt::Key_Delete);
    else
        QTest::keyClicks(field, text);
}

void chooses(QComboBox *box, const QString &text)
{
    const int index = box->findText(text, Qt::MatchExactly);
    if (index < 0)
        fail(u"There is no entry \"%1\" to choose."_s.arg(text));
    box->setCurrentIndex(index);
}

void turnsWheelOver(QWidget *widget)
{
    const QPointF middle = widget->rect().center();
    QWheelEvent wheel(middle, widget->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    // Only what comes from outside the program travels on to the widgets around.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(widget, &wheel);
}

} // namespace Person
