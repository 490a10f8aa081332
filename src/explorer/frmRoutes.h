// Explorer: all flights in one table, on a world map, and checked.
// The page of the routes: the map of the legs that are handed to it, and what can be done with it.
#pragma once

#include "explorer/routes.h"
#include "explorer/routes_scene.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

class QPrinter;

namespace vantor {

namespace Ui {
class frmRoutes;
}

/// Counts the legs in slices while it can be seen, and shows their network when all are counted.
class frmRoutes : public QWidget {
    Q_OBJECT
  public:
    /// The leg of a number from 0 upward.
    using LegAt = std::function<LegId(std::size_t)>;

    explicit frmRoutes(QWidget* parent = nullptr);
    ~frmRoutes() override;

    /// Shows the routes of `count` legs in place of the last ones. Deleted legs among them count only `withDeleted`.
    /// The legs are asked for until the next call, and so is the table of schedules: call it again when that changes.
    void setLegs(std::size_t count, LegAt legAt, bool withDeleted);
    /// Whether the map shows the legs that were set last.
    [[nodiscard]] bool isCounted() const noexcept { return !m_pending && !m_tally && !m_scene; }

    /// Writes what the map shows: a name that ends in .svg as SVG, any other as PNG of twice the window's pixels.
    /// Raises as ReplacingFile does.
    void savePicture(std::string_view path) const;
    /// Prints what the map shows on one page, in the orientation of the window. Raises an error ("Printer error") when
    /// there is no printer or the job is refused.
    void print(QPrinter& printer) const;

  Q_SIGNALS:
    /// The user wants this filter, as in "at=EGLL".
    void filterWanted(const QString& filter);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void goOn() noexcept;
    void countOn(const std::function<bool()>& enough);
    void showSummary();
    void cmbColour_Change(int row) noexcept;
    void cmdSavePicture_Click() noexcept;
    void cmdPrint_Click() noexcept;

    std::unique_ptr<Ui::frmRoutes> m_ui;
    QTimer m_counting;
    std::size_t m_count = 0;
    LegAt m_legAt;
    bool m_withDeleted = false;
    bool m_pending = false; // the legs are new and not counted yet
    std::size_t m_next = 0;
    std::optional<RouteTally> m_tally;
    std::unique_ptr<RoutesScene> m_scene; // whose lines are worked out
};

} // namespace vantor
