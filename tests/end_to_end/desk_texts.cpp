// Opens the window on the files of the current folder, saves a settlement item, a rate and a trip
// as they stand, and prints every text that a page shows.

#include "app/ApplicationSetup.h"
#include "app/BrindlepathApp.h"
#include "support/Person.h"
#include "support/TableReaders.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

QStringList textsOf(const QWidget *part)
{
    if (const auto *table = qobject_cast<const QTableWidget *>(part)) {
        QStringList lines = {headers(table).join(u" | "_s)};
        for (const QStringList &row : texts(table))
            lines.append(row.join(u" | "_s));
        return lines;
    }
    if (const auto *label = qobject_cast<const QLabel *>(part))
        return {label->text()};
    if (const auto *line = qobject_cast<const QLineEdit *>(part)) // those of boxes are among them
        return {line->text()};
    if (const auto *box = qobject_cast<const QComboBox *>(part))
        return offeredBy(box);
    if (const auto *text = qobject_cast<const QTextEdit *>(part))
        return {text->toPlainText()};
    return {};
}

void printTexts(const BrindlepathApp &window)
{
    QTextStream out(stdout);
    const auto *navigation = window.findChild<QListWidget *>(u"navigationList"_s);
    const auto *pages = window.findChild<QStackedWidget *>(u"pageStack"_s);
    for (int row = 0; row < pages->count(); ++row) {
        out << "== " << navigation->item(row)->text() << '\n';
        for (const QWidget *part : pages->widget(row)->findChildren<QWidget *>()) {
            for (const QString &text : textsOf(part))
                out << part->metaObject()->className() << ' ' << text << '\n';
        }
    }
}

void savesWhatIsThere(const BrindlepathApp &window)
{
    auto *navigation = window.findChild<QListWidget *>(u"navigationList"_s);
    navigation->setCurrentRow(3);
    Person::clicksCell(window.findChild<QTableWidget *>(u"settlementItems"_s), 0, 3);
    Person::clicks(window, u"Save Item"_s);
    Person::clicks(window, u"Save APR"_s);
    navigation->setCurrentRow(1);
    Person::clicksCell(window.findChild<QTableWidget *>(u"tripList"_s), 0, 1);
    Person::clicks(window, u"Save Trip / Changes"_s);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    setUpApplication();
    BrindlepathApp window;
    Person::shows(window);
    savesWhatIsThere(window);
    printTexts(window);
    return 0;
}
