#pragma once

#include <QTextEdit>

/// A read-only text that is always as high as what it says, so that the page scrolls and not it.
class DetailsPane : public QTextEdit
{
    Q_OBJECT

public:
    explicit DetailsPane(QWidget *parent = nullptr);

private:
    void growToFit();
};
