#include "app/DataTable.h"

#include <QAbstractItemDelegate>
#include <QHeaderView>

#include <array>

namespace {

/// How wide a text is by its letters, each of which is measured only once.
class LetterWidths
{
public:
    explicit LetterWidths(const QFontMetrics &fontMetrics)
        : metrics(fontMetrics)
    {
        for (std::size_t letter = 0; letter < plain.size(); ++letter)
            plain[letter] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(letter)));
    }

    [[nodiscard]] int of(const QString &text) const
    {
        int width = 0;
        for (const QChar letter : text)
            width += letter.unicode() < plain.size() ? plain[letter.unicode()]
                                                     : metrics.horizontalAdvance(letter);
        return width;
    }

private:
    QFontMetrics metrics;
    std::array<int, 128> plain = {};
};

} // namespace

DataTable::DataTable(const QString &objectName, const QString &accessibleName, int minimumHeight,
                     QWidget *parent)
    : QTableWidget(parent)
{
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    setMinimumHeight(minimumHeight);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
}

int DataTable::sizeHintForColumn(int column) const
{
    const LetterWidths letterWidths(fontMetrics());
    int widest = -1;
    int width = -1;
    for (int row = 0; row < rowCount(); ++row) {
        const QTableWidgetItem *cell = item(row, column);
        const int rowWidth = cell ? letterWidths.of(cell->text()) : 0;
        if (rowWidth > width) {
            width = rowWidth;
            widest = row;
        }
    }
    if (widest < 0)
        return -1; // no rows: the header alone decides
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QModelIndex index = model()->index(widest, column);
    return itemDelegateForIndex(index)->sizeHint(option, index).width() + 1; // and the grid line
}
