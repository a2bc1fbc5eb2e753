#include "ui/DataTable.h"

#include "ui/CellPainter.h"
#include "ui/ShownText.h"

#include <QHeaderView>

#include <algorithm>
#include <array>

namespace {

/// How wide the widest line of a text is by its letters, each of which is measured only when it is
/// first met.
class LetterWidths
{
public:
    explicit LetterWidths(const QFontMetrics &fontMetrics)
        : metrics(fontMetrics)
    {
    }

    [[nodiscard]] int of(QStringView text)
    {
        int widest = 0;
        int width = 0;
        for (const QChar letter : text) {
            width = letter == u'\n' ? 0 : width + of(letter);
            widest = std::max(widest, width);
        }
        return widest;
    }

private:
    int of(QChar letter)
    {
        if (letter.unicode() >= plain.size())
            return metrics.horizontalAdvance(letter);
        int &width = plain[letter.unicode()];
        if (width == 0)
            width = metrics.horizontalAdvance(letter);
        return width;
    }

    QFontMetrics metrics;
    std::array<int, 128> plain = {}; // 0 until measured
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
    setItemDelegate(new CellPainter(this));
    verticalHeader()->hide();
}

int DataTable::sizeHintForColumn(int column) const
{
    LetterWidths letterWidths(fontMetrics());
    int widest = -1;
    int width = -1;
    for (int row = 0; row < rowCount(); ++row) {
        const QTableWidgetItem *cell = item(row, column);
        const int rowWidth = cell ? letterWidths.of(ShownText::shortened(cell->text())) : 0;
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
