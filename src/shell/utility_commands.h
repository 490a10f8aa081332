// Shell: the main window, its dialogs and the settings of the application.
// The utilities panel: five bulk changes of which one is shown at a time.
#pragma once

#include "foundation/trap.h"

#include <string>

class QRadioButton;
class QWidget;

namespace vantor {

namespace Ui {
class UtilitiesBox;
}
class ComboBox;
class CommandRunner;
class Lists;
struct BulkOutcome;
struct Workspace;

/// Changes many schedules at once, by what its boxes say; some of them follow the picks of aircraft and airport.
class UtilityCommands {
  public:
    /// Connects options, buttons and the picks that the boxes follow. All of these must outlive the commands.
    UtilityCommands(Ui::UtilitiesBox& ui, ComboBox* cmbAC, ComboBox* cmbICAO, Workspace& workspace,
                    CommandRunner& runner, Lists& lists);

    /// Puts the shares of a split into their box.
    void fillShares();
    /// One size for the five frames of which one shows at a time, so that nothing moves when another is chosen.
    void fitFrames();

  private:
    std::string changeLevel(const StandardTrap& trap);
    std::string changePercentage(const StandardTrap& trap);
    std::string deleteByIcao(const StandardTrap& trap);
    std::string split(const StandardTrap& trap);
    std::string splitByAircraft(const StandardTrap& trap);
    void takeAircraft(const StandardTrap& trap);
    void takeAirport(const StandardTrap& trap);
    void takeShare(const StandardTrap& trap);

    void showFrame(QWidget& frame);
    [[nodiscard]] std::string finish(const BulkOutcome& outcome, const std::string& did);

    Ui::UtilitiesBox& m_ui;
    ComboBox* m_cmbAC;
    ComboBox* m_cmbICAO;
    Workspace& m_workspace;
    Lists& m_lists;
};

} // namespace vantor
