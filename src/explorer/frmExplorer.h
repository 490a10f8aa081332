// Explorer: all flights in one table, on a world map, and checked.
// The window: the filter on top and the pages that share it.
#pragma once

#include "explorer/explorer_commands.h"
#include "explorer/leg_index.h"

#include <QString>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace vantor {

namespace Ui {
class frmExplorer;
}
class frmChecks;
class frmFlights;
class frmRoutes;

/// A window beside the main one. It reads the tables in place, in slices while nothing else is to be done, and changes
/// nothing.
class frmExplorer : public QWidget {
    Q_OBJECT
  public:
    explicit frmExplorer(QWidget* parent = nullptr);
    ~frmExplorer() override;

    /// What the buttons and keys of the pages do.
    void setCommands(const ExplorerCommands& commands);
    /// Shows how far a command has come, 0 to 1.
    void showProgress(double done);
    /// Brings the window up, with this filter if it is not empty.
    void open(const QString& filter = {});

  public Q_SLOTS:
    /// The tables, or the time offset, have changed: the pages look again.
    void tablesChanged();

  protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void connectKeys();
    void focusPage();
    void search();
    void goOn();
    void searched();
    void showTerms();

    std::unique_ptr<Ui::frmExplorer> m_ui;
    frmFlights* m_flights;
    frmRoutes* m_routes;
    frmChecks* m_checks;
    QTimer m_timer;
    Filter m_filter;
    LegIndex m_index;
    bool m_stale = true; // the tables have changed while the window was hidden
};

} // namespace vantor
