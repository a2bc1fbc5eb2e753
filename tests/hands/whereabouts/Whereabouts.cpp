#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QComboBox>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QScrollBar>
#include <QTextEdit>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

/// What a widget says; the value of a check box is "on" or "off".
QString textOf(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    if (const auto *line = qobject_cast<const QLineEdit *>(widget))
        return line->text();
    if (const auto *box = qobject_cast<const QComboBox *>(widget))
        return box->currentText();
    if (const auto *text = qobject_cast<const QTextEdit *>(widget))
        return text->toPlainText();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->isCheckable() ? (button->isChecked() ? u"on"_s : u"off"_s) : button->text();
    return {};
}

QJsonArray numbers(const QRect &rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

QRect onScreen(const QWidget *widget, const QRect &part)
{
    return {widget->mapToGlobal(part.topLeft()), part.size()};
}

// The place of a part of a widget that is in sight; else the bar that would scroll it there, or
// that which would bring the bar itself into sight, and whether down.
QJsonObject placeOf(const QWidget *widget, const QRect &part)
{
    if (widget->visibleRegion().contains(part.center()))
        return {{u"place"_s, numbers(onScreen(widget, part))}};
    QPoint wanted = onScreen(widget, part).center();
    for (const QWidget *around = widget; around; around = around->parentWidget()) {
        const auto *area = qobject_cast<const QAbstractScrollArea *>(around);
        if (!area)
            continue;
        const QRect inside = onScreen(area->viewport(), area->viewport()->rect());
        const QWidget *bar = area->verticalScrollBar();
        const QRect barInSight = bar->visibleRegion().boundingRect();
        if (!inside.contains(wanted) && !barInSight.isEmpty())
            return {{u"bar"_s, numbers(onScreen(bar, barInSight))},
                    {u"below"_s, wanted.y() > inside.bottom()}};
        if (!inside.contains(wanted))
            wanted = inside.center();
    }
    return {};
}

QJsonObject described(const QWidget *widget)
{
    QJsonObject answer = placeOf(widget, widget->rect());
    answer.insert(u"text"_s, textOf(widget));
    answer.insert(u"enabled"_s, widget->isEnabled());
    return answer;
}

QJsonObject described(const QAbstractItemView *view, const QModelIndex &index)
{
    const QWidget *box = view->indexWidget(index);
    QJsonObject answer = placeOf(view->viewport(), view->visualRect(index));
    answer.insert(u"text"_s, box ? textOf(box) : index.data().toString());
    answer.insert(u"enabled"_s, view->isEnabled());
    return answer;
}

/// The visible widget of that name, in the window that takes input.
QWidget *named(const QString &name)
{
    const QWidget *modal = QApplication::activeModalWidget();
    for (QWidget *widget : QApplication::allWidgets()) {
        if (widget->objectName() == name && widget->isVisible()
            && (!modal || widget->window() == modal))
            return widget;
    }
    return nullptr;
}

QJsonObject askedPart(const QJsonObject &asked)
{
    const QWidget *widget = named(asked.value(u"part"_s).toString());
    if (!widget)
        return {};
    const auto *view = qobject_cast<const QAbstractItemView *>(widget);
    if (!asked.contains(u"row"_s))
        return described(widget);
    const QModelIndex index =
        view ? view->model()->index(asked.value(u"row"_s).toInt(), asked.value(u"column"_s).toInt())
             : QModelIndex();
    return index.isValid() ? described(view, index) : QJsonObject();
}

/// A button of the modal dialog, by its text as it is read.
QJsonObject askedButton(const QString &text)
{
    if (const QWidget *modal = QApplication::activeModalWidget()) {
        for (const auto *button : modal->findChildren<QAbstractButton *>()) {
            if (button->text().remove(u'&') == text && button->isVisible())
                return described(button);
        }
    }
    return {};
}

/// An entry of the list that is open.
QJsonObject askedEntry(const QString &text)
{
    const QWidget *popup = QApplication::activePopupWidget();
    const auto *view = popup ? popup->findChild<QAbstractItemView *>() : nullptr;
    for (int row = 0; view && row < view->model()->rowCount(); ++row) {
        const QModelIndex index = view->model()->index(row, 0);
        if (index.data().toString() == text)
            return described(view, index);
    }
    return {};
}

/// The name of what has the keyboard; "grid[row,column]" for the box or the editor in a cell.
QString focusName()
{
    const QWidget *widget = QApplication::focusWidget();
    const QWidget *parent = widget ? widget->parentWidget() : nullptr;
    const auto *view =
        qobject_cast<const QAbstractItemView *>(parent ? parent->parentWidget() : nullptr);
    if (!view || parent != view->viewport())
        return widget ? widget->objectName() : QString();
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            if (view->indexWidget(view->model()->index(row, column)) == widget)
                return u"%1[%2,%3]"_s.arg(view->objectName()).arg(row).arg(column);
        }
    }
    return {};
}

/// The current cell of the grid that has the keyboard, as "row,column".
QString currentCell()
{
    const auto *view = qobject_cast<const QAbstractItemView *>(QApplication::focusWidget());
    const QModelIndex cell = view ? view->currentIndex() : QModelIndex();
    return cell.isValid() ? u"%1,%2"_s.arg(cell.row()).arg(cell.column()) : QString();
}

/// How things stand: the title of the window, what has the keyboard, and what has come up.
void addState(QJsonObject &answer)
{
    const QWidget *modal = QApplication::activeModalWidget();
    const QWidget *active = QApplication::activeWindow();
    answer.insert(u"focus"_s, focusName());
    answer.insert(u"cell"_s, currentCell());
    answer.insert(u"window"_s, active ? active->windowTitle() : QString());
    answer.insert(u"list"_s, QApplication::activePopupWidget() != nullptr);
    answer.insert(u"dialog"_s, modal && modal == active ? modal->windowTitle() : QString());
}

// Two bytes of an event of X.
quint16 numberAt(const quint8 *event, int offset)
{
    quint16 number = 0;
    std::memcpy(&number, event + offset, sizeof number);
    return number;
}

// Whether a key or a button went down or up. What comes by the X input extension has its own number
// further on, and comes twice: from the device and from the pointer that the device moves, of which
// Qt takes the latter.
bool isKeyOrButton(const quint8 *event)
{
    constexpr int keyDown = 2;
    constexpr int buttonUp = 5;
    constexpr int ofAnExtension = 35;
    int kind = event[0] & 0x7f;
    if (kind == ofAnExtension) {
        kind = numberAt(event, 8);
        const bool isTheDevices = numberAt(event, 10) == numberAt(event, 56);
        return kind >= keyDown && kind <= buttonUp && !isTheDevices;
    }
    return kind >= keyDown && kind <= buttonUp;
}

} // namespace

/// Tells a test where the widgets of the program are on the screen and what they say, in answer to
/// lines of JSON on a local socket. It changes nothing: all input comes from the X server. It
/// counts the keys and buttons that went down and up, so that a test knows when its own have
/// arrived.
class Whereabouts : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    explicit Whereabouts(const QString &socketName)
    {
        server.setSocketOptions(QLocalServer::UserAccessOption);
        server.listen(socketName);
        connect(&server, &QLocalServer::newConnection, this, &Whereabouts::greet);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override
    {
        if (isKeyOrButton(static_cast<const quint8 *>(message)))
            ++arrived;
        return false;
    }

private:
    void greet()
    {
        QLocalSocket *socket = server.nextPendingConnection();
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            while (socket->canReadLine())
                socket->write(answer(QJsonDocument::fromJson(socket->readLine()).object()) + '\n');
        });
    }

    [[nodiscard]] QByteArray answer(const QJsonObject &asked) const
    {
        QJsonObject answer =
            asked.contains(u"button"_s)  ? askedButton(asked.value(u"button"_s).toString())
            : asked.contains(u"entry"_s) ? askedEntry(asked.value(u"entry"_s).toString())
                                         : askedPart(asked);
        addState(answer);
        answer.insert(u"arrived"_s, arrived);
        return QJsonDocument(answer).toJson(QJsonDocument::Compact);
    }

    QLocalServer server;
    int arrived = 0;
};

class WhereaboutsPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QGenericPluginFactoryInterface" FILE
                          "whereabouts.json")

public:
    QObject *create(const QString &, const QString &socketName) override
    {
        return new Whereabouts(socketName);
    }
};

#include "Whereabouts.moc"
