#pragma once

#include <QStringList>

#include <memory>

class QComboBox;
class QStringListModel;

/// A list of texts that many editable boxes offer: location codes, item names. All boxes share one
/// model, so that a grid of boxes costs no more than one list, however long it is. A box keeps the
/// list that it was built with when the texts change.
class OfferedTexts
{
public:
    [[nodiscard]] const QStringList &list() const { return texts; }
    void setList(const QStringList &newTexts);

    /// An editable box that offers the texts, takes any other, and shows `text` in the spelling of
    /// the list if it is in there in any case. It is at least `leastLength` characters wide.
    [[nodiscard]] QComboBox *makeBox(const QString &text, int leastLength) const;

private:
    QStringList texts;
    std::shared_ptr<QStringListModel> model;
};

/// Shows `text` in an editable box: the entry that equals it, ignoring case, or else the text.
/// Blank text leaves the box empty, whatever its list holds.
void showInBox(QComboBox *box, const QString &text);
