// Shell: the main window, its dialogs and the settings of the application.
// The about box: the program's title and version, the year and the maker, with the ways to the maker's pages.
#pragma once

#include <QDialog>

#include <memory>

namespace vantor {

namespace Ui {
class fSHAREDAbout;
}

/// Shown modally; OK and Escape close it.
class fSHAREDAbout : public QDialog {
    Q_OBJECT

  public:
    explicit fSHAREDAbout(QWidget* parent = nullptr);
    ~fSHAREDAbout() override;

  private:
    void Form_Load();

    std::unique_ptr<Ui::fSHAREDAbout> m_ui;
};

} // namespace vantor
