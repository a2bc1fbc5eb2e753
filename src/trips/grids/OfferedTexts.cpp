#include "trips/grids/OfferedTexts.h"

#include "ui/FieldText.h"
#include "ui/NameBox.h"
#include "ui/ShownText.h"

#include <QStringListModel>

void OfferedTexts::setList(const QStringList &newTexts)
{
    if (texts == newTexts)
        return;
    texts = newTexts;
    model = std::make_shared<QStringListModel>(ShownText::withoutTooLong(texts));
}

QComboBox *OfferedTexts::makeBox(const QString &text, int leastLength) const
{
    auto *box = new NameBox;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(leastLength);
    if (model) {
        box->setModel(model.get());
        // Holds the model for as long as the box stands.
        QObject::connect(box, &QObject::destroyed, box, [keep = model] {});
    }
    showInBox(box, text);
    return box;
}

void showInBox(QComboBox *box, const QString &text)
{
    const QString wanted = text.trimmed();
    int index = wanted.isEmpty() ? -1 : box->findText(wanted);
    if (index < 0 && !wanted.isEmpty()) // in another spelling, but not if its own is there too
        index = box->findText(wanted, Qt::MatchFixedString);
    box->setCurrentIndex(index);
    if (box->currentIndex() < 0)
        FieldText::show(box, wanted);
}
