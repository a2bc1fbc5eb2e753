#include "ui/MessageBoxes.h"

#include "ui/LongTextView.h"
#include "ui/ShownText.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestMeasured = 4'000;
constexpr int lettersInALine = 90;
constexpr int roomBesideText = 100;

QSize measured(const QLabel *label, int width, Qt::TextFlag wrap)
{
    return label->fontMetrics()
        .boundingRect({0, 0, width, QWIDGETSIZE_MAX}, wrap, label->text())
        .size();
}

bool fits(const QLabel *label, QSize room)
{
    const QString text = label->text();
    if (text.size() > longestMeasured || text != ShownText::withPictures(text))
        return false;
    // As wide as a box is of itself, but for a word that is wider.
    const int width = std::min(500, label->screen()->availableSize().width() / 2) - roomBesideText;
    const QSize size = measured(label, width, Qt::TextWordWrap);
    return size.width() <= room.width() && size.height() <= room.height();
}

QSize viewSize(const QLabel *label, QSize room)
{
    const int line = lettersInALine * label->fontMetrics().averageCharWidth();
    const QSize size(std::min(line + roomBesideText, room.width()), room.height());
    if (label->text().size() > longestMeasured)
        return size;
    const QSize text = measured(label, size.width() - roomBesideText, Qt::TextWrapAnywhere);
    return {size.width(), std::min(text.height() + roomBesideText, room.height())};
}

// A label lays out all of its text whenever it is asked for its size. Hidden, it is not asked.
void letScroll(QMessageBox *box, QLabel *label, QSize room)
{
    auto *view = new LongTextView(box);
    view->showText(label->text());
    view->setObjectName(label->objectName() + "_view"_L1);
    view->setAccessibleName(box->windowTitle());
    view->setFixedSize(viewSize(label, room));
    delete box->layout()->replaceWidget(label, view);
    label->hide();
}

void keepOnScreen(QMessageBox *box)
{
    QList<QLabel *> labels;
    for (const QString &name : {u"qt_msgbox_label"_s, u"qt_msgbox_informativelabel"_s}) {
        auto *label = box->findChild<QLabel *>(name);
        if (label && !label->isHidden())
            labels.append(label);
    }
    // The last third is for the buttons and the frame.
    QSize room = box->screen()->availableSize() * 2 / 3;
    room.setHeight(room.height() / std::max(1, int(labels.size())));
    for (QLabel *label : std::as_const(labels)) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(label->textInteractionFlags() | Qt::TextSelectableByMouse);
        if (!fits(label, room))
            letScroll(box, label, room);
    }
}

/// On the application, so that no call that opens a box can forget it.
class MessageBoxes : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // The last moment before a box is laid out.
        if (event->type() == QEvent::Polish) {
            if (auto *box = qobject_cast<QMessageBox *>(watched))
                keepOnScreen(box);
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void setUpMessageBoxes()
{
    qApp->installEventFilter(new MessageBoxes(qApp));
}
