// Platform: the Qt side of the program.
// The list box of the forms: flat rows with item data, extended selection, and clicks by the user or by code.
#pragma once

#include "platform/row_model.h"

#include <QListView>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// A list box. Rows are numbered from 0; -1 stands for no row. In a form's layout file the selection mode may be set
/// to single; it is extended otherwise.
class ListBox : public QListView {
    Q_OBJECT
  public:
    explicit ListBox(QWidget* parent = nullptr);

    /// Drops all rows, and with them the current row and the selection. No click.
    void clear();
    /// Adds a row at the end. No click.
    void addRow(std::string_view text, std::int32_t itemData = 0);
    /// Replaces all rows at once and scrolls to the top. No row is current or selected then. No click.
    void setRows(ListRows rows);
    /// Removes a row. When it was the current row, none is current afterwards. No click.
    void removeRow(int row);

    [[nodiscard]] int rowCount() const;
    [[nodiscard]] const ListRows& rows() const noexcept { return m_rows->rows(); }
    /// The text of a row, empty outside the rows: reading one past the last row gives an empty text.
    [[nodiscard]] std::string rowText(int row) const;
    /// The item data of a row, 0 outside the rows.
    [[nodiscard]] std::int32_t itemData(int row) const;

    [[nodiscard]] int currentRow() const;
    /// Text and item data of the current row; empty and 0 without one.
    [[nodiscard]] std::string currentText() const { return rowText(currentRow()); }
    [[nodiscard]] std::int32_t currentItemData() const { return itemData(currentRow()); }
    /// Makes a row current by code, which counts as a click unless the row stays the same. With extended selection the
    /// row joins the selected ones. -1 leaves no row current and is no click; a row outside the rows does nothing.
    void setCurrentRow(int row);

    [[nodiscard]] bool isRowSelected(int row) const;
    [[nodiscard]] int selectedRowCount() const;
    /// Selects a row alone and makes it current; always a click. A row outside the rows does nothing.
    void selectRow(int row);
    /// Selects these rows alone, in ascending order, and makes the first current and seen; one click. Without any, or
    /// with one outside the rows, nothing is done.
    void selectRows(const std::vector<int>& rows);
    /// Puts the selected rows on the clipboard as text, one a line; with none selected it stays as it is.
    void copySelectedRows() const;

  Q_SIGNALS:
    /// The user picked a row or changed the selection, or code changed the current row. What is current and selected
    /// stands already when this is sent, once for each action.
    void rowClicked();
    /// A double click on a row, or Enter on the current one.
    void rowActivated();

  protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

  private:
    template <class Handling>
    void watch(Handling&& handling);
    [[nodiscard]] QModelIndex indexOf(int row) const { return m_rows->index(row); }

    RowModel* m_rows;
    bool m_watching = false; // inside the handling of a mouse or key event
    bool m_changed = false;  // current row or selection changed while watching
};

} // namespace vantor
