// Explorer: all flights in one table, on a world map, and checked.
// The page of the checks: a walk at one press, its findings by kind, and the report.
#pragma once

#include "explorer/checks.h"
#include "explorer/explorer_commands.h"
#include "explorer/filter.h"
#include "explorer/frmChecksModel.h"
#include "explorer/leg_matcher.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace vantor {

namespace Ui {
class frmChecks;
}

class frmChecks : public QWidget {
    Q_OBJECT
  public:
    explicit frmChecks(QWidget* parent = nullptr);
    ~frmChecks() override;

    void setCommands(ExplorerCommands commands);
    /// Shows the findings at legs and schedules that meet this filter.
    void setFilter(const Filter& filter);
    /// The tables have changed: a walk begins anew, and findings of an earlier one are marked as old.
    void tablesChanged();
    /// Begins the walk.
    void check();
    /// Whether a walk has come to its end, and the filter has been held against what it found.
    [[nodiscard]] bool isChecked() const noexcept { return m_checked && m_checks.done() && !m_matcher; }

  protected:
    void showEvent(QShowEvent* event) override;

  Q_SIGNALS:
    /// The filter is to be narrowed by these terms.
    void filterWanted(const QString& terms);

  private:
    void goOn();
    void sift();
    [[nodiscard]] bool siftOn(const std::function<bool()>& enough);
    void showAll();
    void showKinds();
    void showKind();
    void showResult();
    void fitColumns();
    void offerMenu(const QPoint& place);
    void edit();
    void saveReport();
    void writeReport(const std::string& path);

    std::unique_ptr<Ui::frmChecks> m_ui;
    ChecksModel m_model;
    ExplorerCommands m_commands;
    QTimer m_timer;
    Filter m_filter;
    Checks m_checks;
    std::array<Checks::Findings, checkKinds> m_sifted; // what the filter leaves
    std::optional<LegMatcher> m_matcher;               // while findings are held against the filter
    std::size_t m_kind = 0;                            // of the next finding to look at
    std::size_t m_next = 0;                            // that finding
    bool m_checked = false;                            // a walk was begun
    bool m_old = false;                                // the tables changed behind the walk
    bool m_stale = false;                              // the filter changed while the page was hidden
};

} // namespace vantor
