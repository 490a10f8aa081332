// Explorer: all flights in one table, on a world map, and checked.
// The page of the flights: the table, its order and columns, and what can be done with its rows.
#pragma once

#include "explorer/explorer_commands.h"
#include "explorer/frmFlightsModel.h"
#include "explorer/leg_sort.h"

#include <QMenu>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantor {

namespace Ui {
class frmFlights;
}

/// Shows rows that its owner finds. Which rows there are, and in what order, is asked of it.
class frmFlights : public QWidget {
    Q_OBJECT
  public:
    explicit frmFlights(QWidget* parent = nullptr);
    ~frmFlights() override;

    void setCommands(ExplorerCommands commands);

    /// Legs, or schedules when the list is folded.
    [[nodiscard]] RowKind kind() const;
    /// All rows in the order that the user chose, null for that of the tables. It holds until a sort or dropOrder.
    [[nodiscard]] const std::vector<LegNumber>* order();
    /// The tables have changed: the order must be found anew.
    void dropOrder();

    /// Shows the rows of a new search, as far as it has come. They must stay where they are.
    void showRows(const std::vector<LegNumber>& rows);
    /// Shows what the search found since; `done` when that is all.
    void showMore(bool done);
    /// Puts the focus into the table.
    void focusTable();

  Q_SIGNALS:
    /// Other rows or another order are wanted.
    void listingWanted();
    /// The filter is to be narrowed by these terms.
    void filterWanted(const QString& terms);

  private:
    void connectKeys();
    void layOutColumns();
    void makeColumnMenu();
    void offerMenu(const QPoint& place);
    void sortBy(LegColumn column);
    void showSortMark();
    void showCount(bool done);
    void findCurrent(int firstRow);
    void enableButtons();
    [[nodiscard]] std::vector<LegNumber> selectedRows() const;
    [[nodiscard]] std::vector<LegId> selectedLegs() const;
    [[nodiscard]] std::vector<LegColumn> shownColumns() const;
    void edit();
    void copyText();
    void exportRows();
    void writeRows(const std::string& path);

    std::unique_ptr<Ui::frmFlights> m_ui;
    FlightsModel m_model;
    QMenu m_columns;
    ExplorerCommands m_commands;
    std::vector<SortKey> m_sort;                   // the latest choice first
    std::optional<std::vector<LegNumber>> m_order; // by that choice, while the tables stay
    const std::vector<LegNumber>* m_rows = nullptr;
    LegNumber m_current = 0; // the row to go back to when it is found again
};

} // namespace vantor
