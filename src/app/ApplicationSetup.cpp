#include "app/ApplicationSetup.h"

#include "ui/MessageBoxes.h"
#include "ui/UiScale.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>

using namespace Qt::StringLiterals;

void setUpApplication()
{
    // Files, trade and input are dollars with a point, whatever the desktop's locale writes.
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    QApplication::setOrganizationName(u"Brindle Path LLC"_s);
    QApplication::setApplicationName(u"Brindlepath Desk"_s);

    QFont font = QApplication::font();
    font.setPointSize(UiScale::applicationPointSize(UiScale::savedUiScalePercent()));
    QApplication::setFont(font);

    QApplication::setWindowIcon(QIcon(u":/BrindlepathApp/BrindlepathDesk.ico"_s));
    setUpMessageBoxes();
}
