// Shell: the main window, its dialogs and the settings of the application.
// The window with the licences of the program and its parts.
#pragma once

#include <QDialog>

#include <memory>

namespace vantor {

namespace Ui {
class frmLicences;
}

/// Shows the text of the licence that is picked from a list. Shown modally.
class frmLicences : public QDialog {
    Q_OBJECT

  public:
    explicit frmLicences(QWidget* parent = nullptr);
    ~frmLicences() override;

  private:
    std::unique_ptr<Ui::frmLicences> m_ui;
};

} // namespace vantor
