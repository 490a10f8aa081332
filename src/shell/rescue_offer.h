// Shell: the main window, its dialogs and the settings of the application.
// What the window's foot says of the rescue copy: that changes were kept, and that the folder is open elsewhere.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace vantor {

class RescueKeeper;

/// Shows itself only while there is something to say.
class RescueOffer : public QWidget {
    Q_OBJECT
  public:
    explicit RescueOffer(QWidget* parent = nullptr);
    /// Looks at what the keeper has.
    void refresh(const RescueKeeper& keeper);

  Q_SIGNALS:
    void restoreClicked();

  private:
    QLabel* m_text;
    QPushButton* m_restore;
};

} // namespace vantor
