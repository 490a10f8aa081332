// Update: asks the update server for newer versions and fetches the setup program.
// The dialog for the proxy that transfers go through.
#pragma once

#include <QDialog>

#include <memory>

namespace vantor {

namespace Ui {
class fSHAREDProxy;
}

/// Edits the proxy's settings in the store. OK stores them, every other way out leaves the store alone.
class fSHAREDProxy : public QDialog {
    Q_OBJECT

  public:
    explicit fSHAREDProxy(QWidget* parent = nullptr);
    ~fSHAREDProxy() override;

  private:
    void Form_Load() noexcept;
    void enableFrame() noexcept;
    void cmdOK_Click() noexcept;

    std::unique_ptr<Ui::fSHAREDProxy> m_ui;
};

} // namespace vantor
