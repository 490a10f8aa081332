// Views: read-only views of one airport's traffic.
// frmChart: the bar chart of an airport's movements by hour, for every day or for one.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vantor {

namespace Ui {
class frmChart;
}

/// The chart window. One is made for each showing; its picture follows the window's size.
class frmChart : public QDialog {
    Q_OBJECT
  public:
    explicit frmChart(QWidget* owner);
    ~frmChart() override;

    /// Draws the chart of an airport (a row or a bare code) for every day and shows the window until it is closed.
    void showchart(std::string_view icao) noexcept;
    /// Counts and draws for a day code: -1 for the repeating schedules, 0 (Sunday) to 6 for the weekly ones.
    void updatechart(std::int16_t day) noexcept;

  private:
    void Form_Load() noexcept;
    void cmbDay_Click() noexcept;

    std::unique_ptr<Ui::frmChart> m_ui;
    std::string m_icao;
    std::int16_t m_day;
};

} // namespace vantor
