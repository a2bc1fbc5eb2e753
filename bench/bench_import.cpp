// Importing a settlement, its history, and the copy of a database file, each beside its floor. Run
// it in a folder with the 20-year sample, whose log it fills to 2,000 imports.

#include "bench/BareParts.h"
#include "bench/ImportFloors.h"
#include "bench/Ratio.h"
#include "bench/ShownPage.h"
#include "data/SqlTransaction.h"
#include "pdfimport/ImportRepository.h"
#include "pdfimport/history/ImportHistoryPage.h"
#include "settings/DatabaseFiles.h"

#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QSqlDatabase>
#include <QTableWidget>
#include <QTemporaryDir>

#include <unistd.h>

using namespace Qt::StringLiterals;
using BareParts::execute;
using BareParts::rowsOf;
using ImportFloors::SignedImport;

namespace {

constexpr qsizetype logLength = 2000;
constexpr qsizetype rowsOfAnImport = 20;
constexpr qsizetype rowsOfTheLargeImport = 500;
constexpr qsizetype copiedMegabytes = 100;
const QString truck = u"1204"_s;

QStringList firstColumn(const QSqlDatabase &database, const QString &sql)
{
    QStringList texts;
    for (const QStringList &row : rowsOf(database, sql))
        texts.append(row.constFirst());
    return texts;
}

SettlementParseResult settlement(const QString &payweek, const QString &pdfName,
                                 const QStringList &tripNos)
{
    SettlementParseResult parsed;
    parsed.pdfPath = u"/home/driver/Documents/Settlements/"_s + pdfName;
    parsed.truckNumber = truck;
    parsed.payweek = payweek;
    for (const QString &tripNo : tripNos) {
        const double gallons = 60.125 + static_cast<double>(parsed.rows.size());
        parsed.addRow({.dataset = FuelReviewWords::deductionFuel,
                       .tripNo = tripNo,
                       .description = u"Truck Fuel"_s,
                       .route = FuelReviewWords::fuelDetail,
                       .amount = gallons * 3.5,
                       .cost = gallons * 3.75,
                       .discount = gallons * -0.25,
                       .gallons = gallons,
                       .sourceLine = {}});
    }
    return parsed;
}

void logImport(const QSqlDatabase &trips, const SignedImport &import)
{
    execute(trips,
            u"INSERT INTO settlement_import_log (truck_number, payweek, pdf_name, source_hash, "
            "created_at, import_mode, counts_json, payload_json) VALUES (?, ?, ?, ?, "
            "datetime('now'), 'fuel_def_only', '{\"fuel_detail\":20,\"skipped\":0}', ?)"_s,
            {truck, import.parsed.payweek, import.pdfName, import.sourceHash, import.payloadJson});
}

void fillLog(const QSqlDatabase &trips, const QStringList &tripNos)
{
    const QStringList payweeks = firstColumn(trips, u"SELECT DISTINCT payweek FROM trips"_s);
    const qsizetype logged =
        firstColumn(trips, u"SELECT COUNT(*) FROM settlement_import_log"_s).constFirst().toInt();
    QString error;
    SqlTransaction transaction(trips);
    transaction.begin(error);
    for (qsizetype i = logged; i < logLength; ++i)
        logImport(trips, ImportFloors::signedImport(settlement(payweeks.at(i % payweeks.size()),
                                                               u"settlement_%1.pdf"_s.arg(i),
                                                               tripNos.sliced(i, rowsOfAnImport))));
    if (!transaction.commit(error))
        qFatal("%s", qPrintable(error));
}

void benchImport(const QSqlDatabase &trips, const QStringList &tripNos)
{
    const SignedImport import = ImportFloors::signedImport(
        settlement(u"11/20/2026"_s, u"large.pdf"_s, tripNos.last(rowsOfTheLargeImport)));
    print(measured(
        u"Dry run of 500 rows, 2,000 imports logged"_s, 2.0, 25,
        [&import] {
            if (ImportRepository::previewImport(import.parsed).fuelDetailRows
                != rowsOfTheLargeImport)
                qFatal("The dry run did not pass.");
        },
        [&import] { ImportFloors::dryRun(import); }));

    const auto lastId = [&trips](const QString &table) {
        return firstColumn(trips, u"SELECT MAX(id) FROM "_s + table).constFirst();
    };
    const QString lastItem = lastId(u"trip_detail_items"_s);
    const QString lastImport = lastId(u"settlement_import_log"_s);
    const auto undo = [&] {
        execute(trips, u"DELETE FROM trip_detail_items WHERE id > "_s + lastItem);
        execute(trips, u"DELETE FROM settlement_import_log WHERE id > "_s + lastImport);
    };
    print(measured(
        u"Import of 500 rows, 2,000 imports logged"_s, 2.0, 25,
        [&import] {
            if (!ImportRepository::applyImport(import.parsed).success)
                qFatal("The import failed.");
        },
        [&import] { ImportFloors::apply(import); }, undo));
    undo();
}

void benchHistory(const BrindlepathApp &window)
{
    auto *page = shownPage<ImportHistoryPage>(window);
    QTableWidget plain;
    plain.resize(1280, 400);
    plain.show();
    print(measured(
        u"Refresh of a history of 2,000 rows"_s, 1.5, 25, [page] { page->refreshHistory(); },
        [&plain] { ImportFloors::history(plain); }));
}

void writeMegabytes(const QString &path, qsizetype megabytes)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly))
        qFatal("%s", qPrintable(file.errorString()));
    for (qsizetype i = 0; i < megabytes; ++i)
        file.write(QByteArray(1024 * 1024, static_cast<char>(i + 1)));
}

void run(const QString &program, const QStringList &arguments)
{
    if (QProcess::execute(program, arguments) != 0)
        qFatal("%s failed.", qPrintable(program));
}

// A copy that the program has made is on the disk, where `cp` leaves it in memory.
void benchCopy()
{
    const QTemporaryDir folder(u"bench_copy_XXXXXX"_s);
    const QString source = folder.filePath(u"source.db"_s);
    const QString target = folder.filePath(u"target.db"_s);
    writeMegabytes(source, copiedMegabytes);
    const auto copy = [&] {
        QString error;
        if (!DatabaseFiles::copyDatabaseFile(source, target, error))
            qFatal("%s", qPrintable(error));
    };
    const auto clear = [&target] {
        QFile::remove(target);
        sync(); // or one copy would wait for the disk on behalf of the one before
    };
    const auto copyByHand = [&] { run(u"cp"_s, {source, target}); };
    print(measured(u"Copy of 100 MB, beside `cp` alone"_s, 1.3, 15, copy, copyByHand, clear));
    print(measured(
        u"Copy of 100 MB, beside `cp` and `sync`"_s, 1.3, 15, copy,
        [&] {
            copyByHand();
            run(u"sync"_s, {u"-d"_s, target});
        },
        clear));
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    BrindlepathApp window;
    show(window);
    printHeader();
    const QSqlDatabase trips = QSqlDatabase::database(u"trips_connection"_s);
    const QStringList tripNos = firstColumn(trips, u"SELECT trip_no FROM trips"_s);
    fillLog(trips, tripNos);
    benchImport(trips, tripNos);
    benchHistory(window);
    benchCopy();
    return 0;
}
