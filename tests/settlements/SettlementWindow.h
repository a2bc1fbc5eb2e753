#pragma once

#include "data/SqlStatement.h"
#include "settlements/EditSettlementPage.h"
#include "support/Person.h"
#include "support/RowMakers.h"
#include "support/TableReaders.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTableWidget>
#include <QTest>

/// The Edit Settlement page in a window, as a person has it before them, and what it told that
/// window.
class SettlementWindow
{
public:
    SettlementWindow()
        : page(new EditSettlementPage)
    {
        page->statusCallback = [this](const QString &text) { statuses.append(text); };
        window.setCentralWidget(page);
        Person::shows(window);
    }

    /// With the file open and its newest payweek shown; what the page told meanwhile is left out.
    explicit SettlementWindow(const QString &path)
        : SettlementWindow()
    {
        page->openDatabase(path);
        statuses.clear();
    }
    Q_DISABLE_COPY_MOVE(SettlementWindow)

    void clicks(const QString &button) const { Person::clicks(window, button); }
    void clicksItem(int row) const { Person::clicksCell(table(), row, 3); }
    void chooses(const QString &payweek) const { Person::chooses(payweeks(), payweek); }
    void choosesKind(const QString &text) const { Person::chooses(kind(), text); }
    void typesName(const QString &text) const { Person::types(name()->lineEdit(), text); }
    void typesAmount(const QString &text) const { Person::types(amount(), text); }

    /// Puts a name in place in one piece, as from the clipboard.
    void pastesName(const QString &text) const
    {
        name()->lineEdit()->selectAll();
        name()->lineEdit()->insert(text);
    }

    /// Types a rate as a person does who knows that the box is in percent.
    void typesRate(const QString &text) const
    {
        rate()->setFocus();
        rate()->selectAll();
        QTest::keyClicks(rate(), text);
    }

    [[nodiscard]] QComboBox *payweeks() const { return named<QComboBox>("settlementPayweekBox"); }
    [[nodiscard]] QDoubleSpinBox *rate() const { return named<QDoubleSpinBox>("aprBox"); }
    [[nodiscard]] QTableWidget *table() const { return named<QTableWidget>("settlementItems"); }
    [[nodiscard]] QComboBox *kind() const { return named<QComboBox>("settlementItemKind"); }
    [[nodiscard]] QComboBox *name() const { return named<QComboBox>("settlementItemName"); }
    [[nodiscard]] QLineEdit *amount() const { return named<QLineEdit>("settlementItemAmount"); }
    [[nodiscard]] QString summary() const { return named<QLabel>("settlementSummary")->text(); }
    [[nodiscard]] bool saysEmpty() const
    {
        return named<QLabel>("settlementEmptyLabel")->isVisible();
    }

    /// The editor from top to bottom: id, kind, name, amount.
    [[nodiscard]] QStringList editor() const
    {
        return {named<QLabel>("settlementItemId")->text(), kind()->currentText(),
                name()->currentText(), amount()->text()};
    }

    /// The rows that are marked, and the current row.
    [[nodiscard]] QList<int> selection() const
    {
        QList<int> rows;
        for (const QModelIndex &row : table()->selectionModel()->selectedRows())
            rows.append(row.row());
        return rows << table()->currentRow();
    }

    template <typename Widget>
    [[nodiscard]] Widget *named(const char *objectName) const
    {
        return page->findChild<Widget *>(QLatin1StringView(objectName));
    }

    QMainWindow window;
    EditSettlementPage *page;
    QStringList statuses;
};

inline const QString editedWeek = QStringLiteral("04/18/2026");
inline const QString nextWeek = QStringLiteral("04/25/2026");
inline const QString newMode = QStringLiteral("New settlement item mode.");

/// The editor of an item that is not stored yet.
inline const QStringList newItem = {
    QStringLiteral("(new item)"), QStringLiteral("revenue"), {}, {}};

/// The editor of the first item of makeWeek().
inline const QStringList permit = {QStringLiteral("1"), QStringLiteral("expense"),
                                   QStringLiteral("Permit"), QStringLiteral("1234.50")};

// The items of makeWeek() as storedItems() gives them.
inline const QStringList storedPermit = {editedWeek, QStringLiteral("expense"),
                                         QStringLiteral("Permit"), QStringLiteral("1234.5")};
inline const QStringList storedBonus = {editedWeek, QStringLiteral("revenue"),
                                        QStringLiteral("Bonus"), QStringLiteral("250")};

/// A trips.db with a week of two items: 1 Permit and 2 Bonus, which stand in this order.
inline QString makeWeek(Workspace &workspace)
{
    QString path = workspace.makeTrips();
    expense(editedWeek, QStringLiteral("Permit"), 1234.5).insert(workspace);
    revenue(editedWeek, QStringLiteral("Bonus"), 250.0).insert(workspace);
    return path;
}

/// The week with a third item: 1 Permit, 3 ELD and 2 Bonus stand in this order.
inline QString makeWeekOfThree(Workspace &workspace)
{
    QString path = makeWeek(workspace);
    expense(editedWeek, QStringLiteral("ELD"), 9.25).insert(workspace);
    return path;
}

/// What the page tells once the items of a payweek are there.
inline QString loadedRows(int count, const QString &payweek = editedWeek)
{
    return QStringLiteral("Loaded %1 settlement rows for %2").arg(QString::number(count), payweek);
}

/// Every stored item: payweek, kind, name, amount.
inline QList<QStringList> storedItems(const Workspace &workspace)
{
    return workspace.rows(QStringLiteral(
        "SELECT settlement_date, kind, name, amount FROM settlement_non_trip_items ORDER BY id"));
}

/// Runs a statement on the page's own connection, where a pragma has its effect.
inline void onThePagesConnection(const QString &sql)
{
    QString error;
    const QString connection = QStringLiteral("settlement_trips_connection");
    if (!runSql(QSqlDatabase::database(connection, false), sql, {}, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
}
