#include "explorer/frmRoutes.h"

#include "explorer/frmRoutesMap.h"
#include "foundation/busy_pointer.h"
#include "foundation/code_page.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "foundation/replacing_file.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "platform/printer_choice.h"
#include "ui_frmRoutes.h"

#include <QBuffer>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view module = "frmRoutes";
constexpr std::size_t mostRoutes = 50000; // what a map can show and a drag can move at the display's rate
constexpr auto slice = std::chrono::milliseconds(8);

Error printerError() {
    return {482, "Printer error"};
}

} // namespace

frmRoutes::frmRoutes(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::frmRoutes>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->map);
    m_counting.setInterval(0);
    connect(&m_counting, &QTimer::timeout, this, &frmRoutes::goOn);
    connect(m_ui->cmbColour, &QComboBox::currentIndexChanged, this, &frmRoutes::cmbColour_Change);
    connect(m_ui->chkLegend, &QCheckBox::toggled, m_ui->map, &RoutesMap::showLegend);
    connect(m_ui->cmdZoomIn, &QPushButton::clicked, m_ui->map, [this] { m_ui->map->zoom(2); });
    connect(m_ui->cmdZoomOut, &QPushButton::clicked, m_ui->map, [this] { m_ui->map->zoom(0.5); });
    connect(m_ui->cmdShowAll, &QPushButton::clicked, m_ui->map, &RoutesMap::showAll);
    connect(m_ui->cmdSavePicture, &QPushButton::clicked, this, &frmRoutes::cmdSavePicture_Click);
    connect(m_ui->cmdPrint, &QPushButton::clicked, this, &frmRoutes::cmdPrint_Click);
    connect(m_ui->map, &RoutesMap::scaleChanged, this, &frmRoutes::showSummary);
    connect(m_ui->map, &RoutesMap::airportTaken, this,
            [this](const QString& code) { Q_EMIT filterWanted(QStringLiteral("at=") + code); });
}

frmRoutes::~frmRoutes() = default;

void frmRoutes::setLegs(std::size_t count, LegAt legAt, bool withDeleted) {
    m_count = count;
    m_legAt = std::move(legAt);
    m_withDeleted = withDeleted;
    m_pending = true;
    m_tally.reset();
    m_scene.reset();
    if (isVisible()) {
        m_counting.start();
    }
}

void frmRoutes::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_pending) {
        m_counting.start();
    }
}

void frmRoutes::goOn() noexcept {
    const StandardTrap trap{"sub countroutes", module};
    const auto until = std::chrono::steady_clock::now() + slice;
    const auto late = [until] { return std::chrono::steady_clock::now() >= until; };
    const bool went = trap(&frmRoutes::countOn, this, late);
    if (!went || isCounted()) {
        m_counting.stop();
    }
}

void frmRoutes::countOn(const std::function<bool()>& enough) {
    if (std::exchange(m_pending, false)) {
        m_tally.emplace(m_withDeleted);
        m_next = 0;
    }
    if (m_tally) {
        constexpr std::size_t legsBetween = 256;
        const StandardTrap trap{"sub countleg", module};
        while (m_next < m_count && !enough()) {
            for (const std::size_t end = std::min(m_next + legsBetween, m_count); m_next < end; ++m_next) {
                trap([&] { m_tally->add(m_legAt(m_next)); });
            }
        }
        if (m_next < m_count) {
            m_ui->lblSummary->setText(QStringLiteral("Counting flights: %1 %").arg(m_next * 100 / m_count));
            return;
        }
        const auto colouring = static_cast<RouteColouring>(m_ui->cmbColour->currentIndex());
        m_scene = std::make_unique<RoutesScene>(m_tally->take(mostRoutes), colouring);
        m_tally.reset();
    }
    if (m_scene && m_scene->build(enough)) {
        m_ui->map->setScene(std::move(m_scene));
    } else if (m_scene) {
        m_ui->lblSummary->setText(QStringLiteral("Working out the lines..."));
    }
}

void frmRoutes::showSummary() {
    if (isCounted()) {
        const QString summary = toQString(m_ui->map->scene().summary(m_ui->map->view().scale));
        m_ui->lblSummary->setText(summary);
        m_ui->map->setAccessibleDescription(summary);
    }
}

void frmRoutes::cmbColour_Change(int row) noexcept {
    m_ui->map->setColouring(static_cast<RouteColouring>(row));
    if (m_scene) {
        m_pending = true; // its lines are worked out for the old meaning
        m_scene.reset();
    }
}

void frmRoutes::savePicture(std::string_view path) const {
    ReplacingFile file(path);
    if (vantor::lower(path).ends_with(".svg")) {
        file.write(m_ui->map->svg());
    } else {
        constexpr int finer = 2;
        QImage image(m_ui->map->size() * finer, QImage::Format_RGB32);
        QPainter painter(&image);
        m_ui->map->paintPage(painter, image.size());
        painter.end();
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        if (!image.save(&buffer, "PNG")) {
            throw Error(ErrorCode::OutOfMemory);
        }
        file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
    file.commit();
}

void frmRoutes::print(QPrinter& printer) const {
    printer.setPageOrientation(m_ui->map->width() >= m_ui->map->height() ? QPageLayout::Landscape
                                                                         : QPageLayout::Portrait);
    printer.setDocName(QStringLiteral("Routes"));
    QPainter painter;
    // Without a printer the page would go to a file without a name.
    const bool nowhere = printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty();
    if (!printer.isValid() || nowhere || !painter.begin(&printer)) {
        throw printerError();
    }
    m_ui->map->paintPage(painter, painter.viewport().size());
    if (!painter.end() || printer.printerState() == QPrinter::Error || printer.printerState() == QPrinter::Aborted) {
        throw printerError();
    }
}

void frmRoutes::cmdSavePicture_Click() noexcept {
    const StandardTrap trap{"sub cmdSavePicture_click", module};
    const std::string path =
        askforSaveFilename("Save the map as a picture", addbackslash(programFolder()) + "Routes.png",
                           "PNG picture (*.png);;SVG picture (*.svg)");
    if (path.empty()) {
        return;
    }
    bool saved = false;
    {
        const BusyPointer busy{trap};
        saved = trap(&frmRoutes::savePicture, this, path);
    }
    if (saved) {
        m_ui->lblSummary->setText(QStringLiteral("Saved to ") + toQString(path));
    } else {
        trap(&Host::message, host(), "The picture could not be saved as " + path);
    }
}

void frmRoutes::cmdPrint_Click() noexcept {
    const StandardTrap trap{"sub cmdPrint_click", module};
    QPrintDialog dialog(&currentPrinter(), this);
    dialog.setObjectName(QStringLiteral("printDialog"));
    dialog.setWindowTitle(QStringLiteral("Print the Map"));
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    bool printed = false;
    {
        const BusyPointer busy{trap};
        printed = trap(&frmRoutes::print, this, currentPrinter());
    }
    if (!printed) {
        trap(&Host::message, host(), "The map could not be printed");
    }
}

} // namespace vantor
