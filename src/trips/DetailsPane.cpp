#include "trips/DetailsPane.h"

#include <QAbstractTextDocumentLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeight = 120;
constexpr int marginAroundText = 16;

} // namespace

DetailsPane::DetailsPane(QWidget *parent)
    : QTextEdit(parent)
{
    setObjectName(u"tripDetails"_s);
    setAccessibleName(tr("Trip details"));
    setReadOnly(true);
    setTabChangesFocus(true);
    setMinimumHeight(leastHeight);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &DetailsPane::growToFit);
}

void DetailsPane::growToFit()
{
    const int textHeight = static_cast<int>(std::ceil(document()->size().height()));
    setMinimumHeight(std::max(leastHeight, 2 * frameWidth() + marginAroundText + textHeight));
}
