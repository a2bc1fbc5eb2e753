#pragma once

#include <QList>
#include <QPlainTextEdit>

/// A text of any length to be read: it appears at once, scrolls, and can be selected and copied.
/// What Qt would be too slow to lay out looks different and is copied as it is: a line that is too
/// long goes on in the next one, and where there are too many lines a picture stands for the line
/// feed. Control characters show, and are copied, as their pictures.
class LongTextView : public QPlainTextEdit
{
public:
    explicit LongTextView(QWidget *parent);

    void showText(const QString &text);

protected:
    [[nodiscard]] QMimeData *createMimeDataFromSelection() const override;

private:
    QString withShortLines(const QString &text);
    [[nodiscard]] qsizetype placeInText(qsizetype placeInView) const;

    QString wholeText;
    /// Where the view has line breaks that the text has not, ascending.
    QList<qsizetype> addedBreaks;
};
