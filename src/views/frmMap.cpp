#include "views/frmMap.h"

#include "core/codes.h"
#include "core/combo_rows.h"
#include "foundation/host.h"
#include "foundation/trap.h"
#include "ui_frmMap.h"

#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMap";

MapPoint sizeInTwips(const QWidget* widget) {
    return {widget->width() * double{twipsPerPixel}, widget->height() * double{twipsPerPixel}};
}

MapPoint placeInTwips(const QWidget* widget) {
    return {widget->x() * double{twipsPerPixel}, widget->y() * double{twipsPerPixel}};
}

int pixels(double twips) {
    return qRound(twips / twipsPerPixel);
}

float twips(double pixel) {
    return static_cast<float>(pixel * twipsPerPixel);
}

} // namespace

frmMap::frmMap(QWidget* owner) : QDialog(owner), m_ui(std::make_unique<Ui::frmMap>()) {
    m_ui->setupUi(this);
    m_ui->picMap->setMouseTracking(true);
    m_ui->picMap->installEventFilter(this);
    connect(m_ui->cmbAirports, &ComboBox::rowClicked, this, &frmMap::cmbAirports_Click);
    connect(m_ui->cmdZoomIn, &QPushButton::clicked, this, &frmMap::cmdZoomIn_Click);
    connect(m_ui->cmdZoomOut, &QPushButton::clicked, this, &frmMap::cmdZoomOut_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &frmMap::cmdExit_Click);
    if (owner != nullptr) {
        setWindowIcon(owner->window()->windowIcon());
    }
    // A degree of longitude and one of latitude look alike in a square frame.
    const int unit = fontMetrics().averageCharWidth();
    resize(unit * 120, unit * 128);
    setupscreen();
}

frmMap::~frmMap() = default;

void frmMap::loadmap(int index) noexcept {
    m_ui->cmbAirports->setRows(airportRows());
    m_ui->cmbAirports->setCurrentRow(0);
    if (m_ui->cmbAirports->rowCount() > 0) {
        m_ui->cmbAirports->setCurrentRow(index);
    }
}

void frmMap::drawothers(std::string_view icao) noexcept {
    const StandardTrap trap{"sub drawothers", module};
    if (m_drawing) {
        m_drawAgain = true;
        return;
    }
    m_drawing = true;
    trap([&] {
        const std::string code(icao);
        m_ui->picMap->setGeometry(QRect(QPoint(0, 0), m_ui->picFrame->size()));
        drawRouteMap(trap, *m_ui->picMap, code);
        while (std::exchange(m_drawAgain, false)) {
            m_ui->picMap->setGeometry(QRect(QPoint(0, 0), m_ui->picFrame->size()));
            drawRouteMap(trap, *m_ui->picMap, chosenCode());
        }
    });
    m_drawing = false;
}

void frmMap::setupscreen() noexcept {
    const MapLayout layout = mapLayout(sizeInTwips(this), sizeInTwips(m_ui->picFrame));
    m_ui->picFrame->setGeometry(pixels(layout.frame.x), pixels(layout.frame.y), pixels(layout.frameSize.x),
                                pixels(layout.frameSize.y));
    m_ui->picMap->move(pixels(layout.map.x), pixels(layout.map.y));
    placeButtons(pixels(layout.buttonsTop));
}

// Side by side below the frame: the airports on the left, the way out on the right.
void frmMap::placeButtons(int top) {
    const int gap = fontMetrics().averageCharWidth();
    int right = std::max(m_ui->picFrame->geometry().right() + 1, minimumWidth());
    for (QWidget* const button : std::initializer_list<QWidget*>{m_ui->cmdExit, m_ui->cmdZoomOut, m_ui->cmdZoomIn}) {
        const QSize size = button->sizeHint();
        right -= size.width();
        button->setGeometry(QRect(QPoint(right, top), size));
        right -= gap;
    }
    const int left = m_ui->picFrame->x();
    const int width = std::clamp(right - left, gap * 8, std::max(gap * 8, gap * 45));
    m_ui->cmbAirports->setGeometry(left, top, width, m_ui->cmdExit->height());
}

std::string frmMap::chosenCode() const {
    return extractcode(m_ui->cmbAirports->text());
}

void frmMap::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    setupscreen();
    drawothers(chosenCode());
}

// A window closed by its key in the middle of a drag hears of no release.
void frmMap::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    const StandardTrap trap{"sub form_hide", module};
    if (std::exchange(m_pressed, false)) {
        trap(&Host::setPointer, host(), Pointer::Normal);
    }
}

void frmMap::cmbAirports_Click() noexcept {
    const StandardTrap trap{"sub cmbairports_click", module};
    m_ui->cmbAirports->setEnabled(false);
    drawothers(chosenCode());
    m_ui->cmbAirports->setEnabled(true);
    m_ui->cmbAirports->setFocus();
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
}

void frmMap::cmdZoomIn_Click() noexcept {
    if (mayZoomIn(sizeInTwips(m_ui->picMap))) {
        m_ui->picMap->resize(m_ui->picMap->size() * 1.25);
        drawothers(chosenCode()); // Quirk: fits the map into its frame again, so no zoom lasts
    }
}

void frmMap::cmdZoomOut_Click() noexcept {
    m_ui->picMap->resize(m_ui->picMap->size() * 0.75);
    m_ui->picMap->move(0, 0);
    drawothers(chosenCode());
}

void frmMap::cmdExit_Click() noexcept {
    hide();
}

bool frmMap::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_ui->picMap) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            picMap_MouseDown(*static_cast<QMouseEvent*>(event));
            break;
        case QEvent::MouseMove:
            picMap_MouseMove(*static_cast<QMouseEvent*>(event));
            break;
        case QEvent::MouseButtonRelease:
            picMap_MouseUp(*static_cast<QMouseEvent*>(event));
            break;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmMap::picMap_MouseDown(const QMouseEvent& event) noexcept {
    const StandardTrap trap{"sub picmap_mousedown", module};
    if (event.button() == Qt::LeftButton) {
        m_pressed = true;
        trap(&Host::setPointer, host(), Pointer::SizeAll);
        m_drag.press(twips(event.position().x()), twips(event.position().y()));
    }
}

void frmMap::picMap_MouseMove(const QMouseEvent& event) noexcept {
    const StandardTrap trap{"sub picmap_mousemove", module};
    trap([&] { // a drag far beyond the window overflows
        const MapPoint place = m_drag.move(twips(event.position().x()), twips(event.position().y()),
                                           event.buttons().testFlag(Qt::LeftButton), placeInTwips(m_ui->picMap),
                                           sizeInTwips(m_ui->picMap), sizeInTwips(m_ui->picFrame));
        m_ui->picMap->move(pixels(place.x), pixels(place.y));
    });
}

void frmMap::picMap_MouseUp(const QMouseEvent& event) noexcept {
    const StandardTrap trap{"sub picmap_mouseup", module};
    m_pressed = false;
    m_drag.release(twips(event.position().x()), twips(event.position().y()));
    trap(&Host::setPointer, host(), Pointer::Normal);
}

} // namespace vantor
