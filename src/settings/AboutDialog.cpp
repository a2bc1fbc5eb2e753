#include "settings/AboutDialog.h"

#include "settings/LicenceText.h"
#include "settings/ProductFacts.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usualSize(620, 520);

QLabel *wrappedLabel(const QString &text, const QString &objectName)
{
    auto *label = new QLabel(text);
    label->setObjectName(objectName);
    label->setWordWrap(true);
    return label;
}

void setHeadingFont(QLabel *label, int extraPoints)
{
    QFont font = label->font();
    font.setBold(true);
    font.setPointSize(font.pointSize() + extraPoints);
    label->setFont(font);
}

QString licenceText()
{
    QString found = LicenceText::firstLicenceText(LicenceText::licenceCandidates(
        QCoreApplication::applicationDirPath(), QDir::currentPath()));
    if (!found.isEmpty())
        return found;
    return AboutDialog::tr("EULA.txt was not found next to the application executable.\n\n"
                           "Place EULA.txt in the same folder as BrindlepathApp.exe so this "
                           "license viewer can display it.")
           + u"\n\n%1\n%2\n%3"_s.arg(ProductFacts::displayName, ProductFacts::copyrightStatement,
                                     ProductFacts::rightsStatement);
}

} // namespace

AboutDialog::AboutDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("About Brindlepath Desk"));
    setMinimumSize(520, 420);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 18);
    layout->setSpacing(12);
    layout->addWidget(buildProductPanel());
    buildLicence(layout);
    buildButtons(layout);
    // At the larger scales the texts would cover each other in the usual height.
    resize(usualSize.width(),
           std::max(usualSize.height(), layout->totalMinimumHeightForWidth(usualSize.width())));
}

QWidget *AboutDialog::buildProductPanel()
{
    auto *panel = new QFrame;
    panel->setObjectName(u"productPanel"_s);
    panel->setFrameShape(QFrame::StyledPanel);
    auto *name = new QLabel(ProductFacts::displayName);
    name->setObjectName(u"displayNameLabel"_s);
    setHeadingFont(name, 6);

    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(6);
    layout->addWidget(name);
    layout->addWidget(wrappedLabel(tr("Desktop Edition"), u"editionLabel"_s));
    layout->addSpacing(4);
    layout->addWidget(
        wrappedLabel(tr("Professional software for trucking trip management, settlement "
                        "management, reporting, and transportation data analysis."),
                     u"purposeLabel"_s));
    layout->addWidget(buildCopyrightLabel());
    layout->addWidget(buildWebsiteLabel());
    layout->addWidget(buildVersionLabel());
    return panel;
}

QLabel *AboutDialog::buildCopyrightLabel()
{
    QLabel *label = wrappedLabel(ProductFacts::copyrightStatement.toHtmlEscaped() + u"<br>"_s
                                     + ProductFacts::rightsStatement.toHtmlEscaped(),
                                 u"copyrightLabel"_s);
    label->setTextFormat(Qt::RichText);
    return label;
}

QLabel *AboutDialog::buildWebsiteLabel()
{
    const QString link = u"<a href=\"%1\">%1</a>"_s.arg(ProductFacts::website.toHtmlEscaped());
    QLabel *label = wrappedLabel(tr("Website: %1").arg(link), u"websiteLabel"_s);
    label->setTextFormat(Qt::RichText);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    label->setOpenExternalLinks(true);
    label->setAccessibleName(tr("Website"));
    return label;
}

QLabel *AboutDialog::buildVersionLabel()
{
    return wrappedLabel(
        tr("Version: %1\nBuild date: %2 %3")
            .arg(ProductFacts::version, QStringLiteral(__DATE__), QStringLiteral(__TIME__)),
        u"versionLabel"_s);
}

void AboutDialog::buildLicence(QBoxLayout *layout)
{
    auto *caption = new QLabel(tr("License / EULA"));
    caption->setObjectName(u"licenceCaption"_s);
    setHeadingFont(caption, 0);
    auto *box = new QTextEdit;
    box->setObjectName(u"licenceText"_s);
    box->setReadOnly(true);
    box->setAcceptRichText(false);
    box->setTabChangesFocus(true);
    box->setMinimumHeight(190);
    box->setPlainText(licenceText());
    caption->setBuddy(box);
    layout->addWidget(caption);
    layout->addWidget(box, 1);
}

void AboutDialog::buildButtons(QBoxLayout *layout)
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->setObjectName(u"buttons"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}
