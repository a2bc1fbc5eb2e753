#pragma once

#include <QDialog>

class QBoxLayout;
class QLabel;
class QWidget;

/// Tells who made the program and which version this is, and shows the end user licence agreement
/// that lies near the program. The agreement is read once, when the dialog is built.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget *parent = nullptr);

private:
    QWidget *buildProductPanel();
    QLabel *buildCopyrightLabel();
    QLabel *buildWebsiteLabel();
    QLabel *buildVersionLabel();
    void buildLicence(QBoxLayout *layout);
    void buildButtons(QBoxLayout *layout);
};
