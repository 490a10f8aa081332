// Platform: the Qt side of the program.
// The combo box of the forms: flat rows with item data, typing that completes, and clicks by the user or by code.
#pragma once

#include "platform/row_model.h"

#include <QComboBox>

#include <cstdint>
#include <string>
#include <string_view>

class QAction;
class QCompleter;

namespace vantor {

/// A combo box, with typing ("editable" in a form's layout file) or without. Rows are numbered from 0; -1 stands for
/// no row. A row picked from the list of completions is picked like any other; typing, Enter and leaving the box are
/// never clicks.
class ComboBox : public QComboBox {
    Q_OBJECT
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)
    Q_PROPERTY(QString accessibleName READ accessibleName WRITE setAccessibleName)
  public:
    explicit ComboBox(QWidget* parent = nullptr);

    /// Whether a text may be typed. Takes the place of the base's function, whose line edit picks rows by itself.
    void setEditable(bool editable);

    /// The name in the accessibility tree. Takes the place of the base's function, whose name some systems don't tell.
    void setAccessibleName(const QString& name);

    /// Drops all rows and the text. No click.
    void clear();
    /// Adds a row; the current row and the text stay.
    void addRow(std::string_view text, std::int32_t itemData = 0);
    /// Replaces all rows at once. No row is current and the text is empty then. No click.
    void setRows(ListRows rows);
    /// Changes a row's text; the box's own text follows when the row is current. No click.
    void setRowText(int row, std::string_view text);

    [[nodiscard]] int rowCount() const;
    /// The text of a row, empty outside the rows.
    [[nodiscard]] std::string rowText(int row) const;
    /// The item data of a row, 0 outside the rows.
    [[nodiscard]] std::int32_t itemData(int row) const;
    [[nodiscard]] const ListRows& rows() const noexcept { return m_rows->rows(); }

    /// The row picked last, -1 when there is none or another text was typed over it.
    [[nodiscard]] int currentRow() const;
    [[nodiscard]] std::int32_t currentItemData() const { return itemData(currentRow()); }
    /// Makes a row current by code, which counts as a click unless the row stays the same. -1 leaves no row current
    /// and the text empty, and is no click; a row outside the rows does nothing.
    void setCurrentRow(int row);

    /// The text in the box, typed or picked.
    [[nodiscard]] std::string text() const;
    /// Sets the text; no click. The row with exactly this text becomes current. Without typing, a text that no row has
    /// does nothing.
    void setText(std::string_view text);

    /// From now on a text that was typed and not picked is told by its colour, a mark and a tooltip, since it changes
    /// nothing.
    void setMarksTypedText();

    void showPopup() override;

  Q_SIGNALS:
    /// The user picked a row from the list, by the arrow keys or by the wheel, or code changed the current row.
    void rowClicked();

  protected:
    void showEvent(QShowEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Puts the box on a row and a text; who listens for clicks hears nothing of it.
    void place(int row, const QString& text);
    [[nodiscard]] int popupWidth() const;
    void complete(const QString& typed);
    void pickCompletion(const QModelIndex& completion);
    void markTypedText();

    RowModel* m_rows;
    QCompleter* m_completer;
    QAction* m_typedMark = nullptr; // where typed text is marked
};

} // namespace vantor
