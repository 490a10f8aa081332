// Shell: the main window, its dialogs and the settings of the application.
// The error report dialog: shows a failure, and lets the user mail it with comments and the log.
#pragma once

#include "foundation/error_report_text.h"

#include <QDialog>

#include <memory>
#include <string>
#include <string_view>

namespace vantor {

namespace Ui {
class fSHAREDErrorRpt;
}

/// Shows a failure in a dialog of its own; control comes back when it is closed. To be put in use by useErrorReporter.
void showErrorReport(std::string_view text, std::string_view topic);

/// One report. It has no effect on the program, whichever way it is left.
class fSHAREDErrorRpt : public QDialog {
    Q_OBJECT

  public:
    explicit fSHAREDErrorRpt(QWidget* parent = nullptr);
    ~fSHAREDErrorRpt() override;

    /// Shows the form modally with this failure and the log as it stands. `topic` is for a help that isn't there.
    void ShowError(std::string_view text, std::string_view topic) noexcept;
    /// Forgets that comments were entered.
    void MakeClean() noexcept { m_commentsChanged = false; }
    [[nodiscard]] bool closed() const noexcept { return m_closed; }

    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Form_Load() noexcept;
    void showLog();
    void cmdEmail_Click() noexcept;
    void cmdViewReport_Click() noexcept;
    void cmdViewLog_Click() noexcept;
    void cmdShowComments_Click() noexcept;
    void cmdHelp_Click() noexcept;
    void cmdExit_Click() noexcept;
    [[nodiscard]] ErrorReport report() const;

    std::unique_ptr<Ui::fSHAREDErrorRpt> m_ui;
    std::string m_topic;
    bool m_commentsChanged = false;
    bool m_closed = false;
};

} // namespace vantor
