#pragma once

#include "pdfimport/ImportPdfPage.h"
#include "samples/PdfFile.h"
#include "support/DialogRobot.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTest>

/// A settlement with a purchase of trip 4471203 and one of trip 4471999.
inline const QStringList weekSixteen = {
    QStringLiteral("TRUCK NO: 4417 SETTLEMENT DATE: 26/04/18"),
    QStringLiteral("04/15 TRUCK FUEL TRIP 4471203 100.0 GAL (25.00) 412.80"),
    QStringLiteral("04/16 LINEHAUL TRIP 4471203 1,842.00"),
    QStringLiteral("04/16 DEF TRIP 4471999 5 GAL 21.35"),
};

/// The settlement of the week after, with a purchase of trip 4471203.
inline const QStringList weekSeventeen = {
    QStringLiteral("TRUCK NO: 4417 SETTLEMENT DATE: 26/04/25"),
    QStringLiteral("04/22 REEFER FUEL TRIP 4471203 22.5 GALS 88.40"),
};

/// How the review shows the two purchases of week sixteen.
inline const QStringList shownTruckFuel = {
    QStringLiteral("Yes"),         QStringLiteral("Deduction Fuel"),
    QStringLiteral("4471203"),     QStringLiteral("Truck Fuel"),
    QStringLiteral("fuel_detail"), QStringLiteral("412.80"),
    QStringLiteral("412.80"),      QStringLiteral("-25.00"),
    QStringLiteral("100.000"),     weekSixteen.at(1)};
inline const QStringList shownDef = {
    QStringLiteral("Yes"),   QStringLiteral("Deduction Fuel"), QStringLiteral("4471999"),
    QStringLiteral("Def"),   QStringLiteral("fuel_detail"),    QStringLiteral("21.35"),
    QStringLiteral("21.35"), QStringLiteral("0.00"),           QStringLiteral("5.000"),
    weekSixteen.at(3)};

/// How the review shows a row that was just added by hand.
inline const QStringList shownManualRow = {
    QStringLiteral("Yes"),
    QStringLiteral("Manual Fuel"),
    QString(),
    QStringLiteral("Truck Fuel"),
    QStringLiteral("fuel_detail"),
    QStringLiteral("0.00"),
    QStringLiteral("0.00"),
    QStringLiteral("0.00"),
    QStringLiteral("0.000"),
    QStringLiteral("Added manually in Fuel/DEF review grid.")};

/// The editor without a row.
inline const QStringList noFields = {QStringLiteral("on"),
                                     QStringLiteral("Deduction Fuel"),
                                     QStringLiteral("fuel_detail"),
                                     QString(),
                                     QString(),
                                     QString(),
                                     QString(),
                                     QString(),
                                     QString(),
                                     QString()};

/// Writes a real PDF of one page and gives its path.
inline QString makePdf(const QString &fileName, const QStringList &lines = weekSixteen)
{
    const QString path = QDir::current().absoluteFilePath(fileName);
    QString error;
    if (!writePdf(path, {lines}, PdfMake::Text, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return path;
}

/// The tools, trips.db with trip 4471203, and nothing else.
inline void makeTripToImportInto(Workspace &workspace)
{
    workspace.linkTools();
    workspace.makeTrips();
    trip().no(QStringLiteral("4471203")).payweek(QStringLiteral("04/18/2026")).insert(workspace);
}

/// The text with what no one knows beforehand covered: folder, hashes and times.
inline QString masked(QString text)
{
    static const QRegularExpression hash(QStringLiteral("[0-9a-f]{64}"));
    static const QRegularExpression time(QStringLiteral(R"(\d{4}-\d{2}-\d{2} \d{2}:\d{2}:\d{2})"));
    return text.replace(QDir::currentPath(), QStringLiteral("<folder>"))
        .replace(hash, QStringLiteral("<hash>"))
        .replace(time, QStringLiteral("<time>"));
}

/// The import page in a window, as a person has it before them.
class ImportWindow
{
public:
    ImportWindow()
        : page(new ImportPdfPage)
    {
        window.setCentralWidget(page);
        Person::shows(window);
    }
    Q_DISABLE_COPY_MOVE(ImportWindow)

    void clicks(const QString &button) const { Person::clicks(window, button); }
    void clicksRow(int row) const { Person::clicksCell(grid(), row, 3); }
    void types(const char *field, const QString &text) const
    {
        Person::types(named<QLineEdit>(field), text);
    }

    /// Chooses a PDF in the file dialog.
    void chooses(DialogRobot &robot, const QString &path) const
    {
        robot.expectFileDialog(QStringLiteral("Choose Settlement PDF for Fuel/DEF Scan"))
            .choose(path);
        clicks(QStringLiteral("Choose PDF"));
    }

    /// Chooses a PDF and scans it.
    void scans(DialogRobot &robot, const QString &path) const
    {
        chooses(robot, path);
        clicks(QStringLiteral("Scan Fuel/DEF Only"));
    }

    [[nodiscard]] QTableWidget *grid() const { return named<QTableWidget>("reviewGrid"); }
    [[nodiscard]] QString label(const char *name) const { return named<QLabel>(name)->text(); }
    [[nodiscard]] QString pdfPath() const { return label("importPath"); }
    [[nodiscard]] QString summary() const { return label("importSummary"); }
    [[nodiscard]] QString status() const { return label("importStatus"); }
    [[nodiscard]] QString text() const { return box("importText"); }
    [[nodiscard]] QStringList log() const { return masked(box("importLog")).split(u'\n'); }
    [[nodiscard]] QList<QStringList> rows() const { return texts(grid()); }
    [[nodiscard]] QList<QStringList> pages() const
    {
        return texts(named<QTableWidget>("importPages"));
    }

    /// What the editor shows, from top to bottom.
    [[nodiscard]] QStringList fields() const
    {
        QStringList shown = {named<QCheckBox>("reviewUse")->isChecked() ? QStringLiteral("on")
                                                                        : QStringLiteral("off"),
                             named<QComboBox>("reviewDataset")->currentText(),
                             named<QComboBox>("reviewRoute")->currentText()};
        for (const char *field : {"reviewTrip", "reviewDescription", "reviewAmount", "reviewCost",
                                  "reviewDiscount", "reviewGallons"})
            shown.append(named<QLineEdit>(field)->text());
        return shown << box("reviewNotes");
    }

    /// The lines of the review that are marked.
    [[nodiscard]] QList<int> marked() const
    {
        QList<int> lines;
        for (const QModelIndex &line : grid()->selectionModel()->selectedRows())
            lines.append(line.row());
        return lines;
    }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *name) const
    {
        return page->findChild<Widget *>(QLatin1StringView(name));
    }

    QMainWindow window;
    ImportPdfPage *page;

private:
    [[nodiscard]] QString box(const char *name) const
    {
        return named<QPlainTextEdit>(name)->toPlainText();
    }
};

/// The fuel rows that the file holds: trip, type, cost, discount, gallons.
inline QList<QStringList> importedFuel(const Workspace &workspace)
{
    return workspace.rows(QStringLiteral(
        "SELECT trip_id, item_type, cost, discount, gallons FROM trip_detail_items ORDER BY id"));
}

/// The imports that the file holds: PDF, payweek, truck, mode, counts.
inline QList<QStringList> loggedImports(const Workspace &workspace)
{
    return workspace.rows(QStringLiteral("SELECT pdf_name, payweek, truck_number, import_mode, "
                                         "counts_json FROM settlement_import_log ORDER BY id"));
}
