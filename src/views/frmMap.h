// Views: read-only views of one airport's traffic.
// frmMap: the airports that are linked to one airport, on a plain grid of degrees.
#pragma once

#include "views/route_map.h"

#include <QDialog>

#include <memory>
#include <string>
#include <string_view>

class QMouseEvent;

namespace vantor {

namespace Ui {
class frmMap;
}

/// The map window. One is made for each showing: loadmap, then exec.
class frmMap : public QDialog {
    Q_OBJECT
  public:
    explicit frmMap(QWidget* owner);
    ~frmMap() override;

    /// Lists the airports and picks row `index`, which draws its map.
    void loadmap(int index) noexcept;
    /// Fits the map into its frame, which undoes zoom and drag, and draws the airport of a code.
    void drawothers(std::string_view icao) noexcept;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setupscreen() noexcept;
    void placeButtons(int top);
    [[nodiscard]] std::string chosenCode() const;
    void cmbAirports_Click() noexcept;
    void cmdZoomIn_Click() noexcept;
    void cmdZoomOut_Click() noexcept;
    void cmdExit_Click() noexcept;
    void picMap_MouseDown(const QMouseEvent& event) noexcept;
    void picMap_MouseMove(const QMouseEvent& event) noexcept;
    void picMap_MouseUp(const QMouseEvent& event) noexcept;

    std::unique_ptr<Ui::frmMap> m_ui;
    MapDrag m_drag;
    bool m_pressed = false;
    bool m_drawing = false;
    bool m_drawAgain = false; // the window changed its size while it was drawn
};

} // namespace vantor
