#include "views/frmChart.h"

#include "foundation/list_row.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "ui_frmChart.h"
#include "views/movement_chart.h"
#include "views/movements.h"

namespace vantor {

namespace {

constexpr std::string_view module = "frmChart";

// A square of one colour beside its legend.
void paintSquare(QWidget* square, const QColor& colour, int side) {
    QPalette palette = square->palette();
    palette.setColor(QPalette::Window, colour);
    square->setPalette(palette);
    square->setAutoFillBackground(true);
    square->setFixedSize(side, side);
}

} // namespace

frmChart::frmChart(QWidget* owner) : QDialog(owner), m_ui(std::make_unique<Ui::frmChart>()), m_day(dailyView) {
    m_ui->setupUi(this);
    const int side = fontMetrics().ascent();
    paintSquare(m_ui->Shape1, QColor(255, 0, 0), side);
    paintSquare(m_ui->Shape2, QColor(0, 0, 255), side);
    // Room for 48 bars and the hours below them.
    m_ui->picChart->setMinimumSize(fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 12);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 28);
    connect(m_ui->cmbDay, &ComboBox::rowClicked, this, &frmChart::cmbDay_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->picChart, &PictureBox::resized, this, [this] { updatechart(m_day); });
    Form_Load();
}

frmChart::~frmChart() = default;

void frmChart::Form_Load() noexcept {
    if (parentWidget() != nullptr) {
        setWindowIcon(parentWidget()->window()->windowIcon());
    }
    m_ui->cmbDay->setRows(
        {{"Daily"}, {"Sun Only"}, {"Mon Only"}, {"Tue Only"}, {"Wed Only"}, {"Thu Only"}, {"Fri Only"}, {"Sat Only"}});
    m_ui->cmbDay->setCurrentRow(0);
}

void frmChart::showchart(std::string_view icao) noexcept {
    const StandardTrap trap{"sub showchart", module};
    m_icao = icao;
    updatechart(dailyView);
    trap(&frmChart::exec, this);
}

void frmChart::updatechart(std::int16_t day) noexcept {
    const StandardTrap trap{"sub updatechart", module};
    m_day = day;
    m_ui->lblTraffic->setText(toQString(m_icao));
    trap(drawMovementChart, *m_ui->picChart, m_icao, day);
}

void frmChart::cmbDay_Click() noexcept {
    // Row 0 is the daily view, the rows behind it are the days from Sunday on.
    updatechart(static_cast<std::int16_t>(m_ui->cmbDay->currentRow() - 1));
}

} // namespace vantor
