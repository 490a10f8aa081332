// Shell: the main window, its dialogs and the settings of the application.
// The views of the airport chosen in cmbICAO: timetable, its printing, gates, chart and map.
#pragma once

#include "foundation/trap.h"

#include <string>
#include <string_view>

class QAbstractButton;
class QWidget;

namespace vantor {

namespace Ui {
class AirportBox;
}
class CommandRunner;
class ListBox;
class Lists;

/// Shows an airport's traffic in List2 and in windows of its own.
class ViewCommands {
  public:
    /// Connects the buttons. `owner` is the parent of the dialogs; all of these must outlive the commands.
    ViewCommands(QWidget& owner, Ui::AirportBox& ui, ListBox* list2, QAbstractButton* cmdPrint, CommandRunner& runner,
                 Lists& lists);

    /// Fills List2 with the timetable of an airport (a row or code) and enables cmdPrint.
    void displaytimetable(std::string_view icao) noexcept;
    /// Fills List2 with the gate table of an airport (a row or code). The printing stays as it was.
    void displaymaxgates(std::string_view icao) noexcept;

    /// Opens the map of an airport (a code); the one of the box stays.
    void showMapOf(std::string_view icao);

  private:
    std::string showTimetable(const StandardTrap& trap);
    std::string print(const StandardTrap& trap);
    std::string showGates(const StandardTrap& trap);
    std::string showChart(const StandardTrap& trap);
    std::string showMap(const StandardTrap& trap);

    void openMap(int row);

    QWidget& m_owner;
    Ui::AirportBox& m_ui;
    ListBox* m_list2;
    Lists& m_lists;
};

} // namespace vantor
