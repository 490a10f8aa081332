// Test support: one include for every test of a form.
// Drives forms as a user does: controls by object name, real clicks and keys, answers to the boxes that come up.
#pragma once

#include "platform/code_page.h"
#include "platform/combo_box.h"
#include "platform/list_box.h"
#include "platform/qt_host.h"
#include "support/test.h"

#include <QtTest>
#include <QtWidgets>

#include <stdexcept>

namespace vantor::test {

/// The control of a form by its object name. A missing one, or one of another kind, fails the test.
template <class Widget>
[[nodiscard]] Widget& control(const QObject& form, std::string_view name) {
    const QString objectName = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    auto* found = form.findChild<Widget*>(objectName);
    if (found == nullptr) {
        throw std::runtime_error("no such control: " + std::string(name));
    }
    return *found;
}

/// Clicks a control with the mouse. One that is hidden or disabled fails the test, as no user could press it.
void click(QWidget& control);
void click(QWidget& form, std::string_view name);

/// Clicks a row of a list with the mouse.
void clickRow(ListBox& list, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// A press, and then a double press, as a user's double click arrives.
void doubleClickRow(ListBox& list, int row);
/// Opens a combo box's list and clicks a row.
void pickRow(ComboBox& combo, int row);
/// Takes what stands in a text field or combo box away and types a text.
void typeOver(QWidget& field, std::string_view text);
/// The texts of rows, each with a bar behind it.
[[nodiscard]] std::string rowsOf(const ListRows& rows);
/// Enters a name in the toolkit's own file dialog and accepts it.
void enterFileName(QDialog& dialog, const QString& name);
/// Where the pixels of these colours stand in a picture; null where there are none.
[[nodiscard]] QRect extentOf(const QImage& image, const std::function<bool(QRgb)>& matches);
/// Does one thing in a form, as a user does: clicks a control ("cmdCopy"), clicks the row of a list or picks that of a
/// box ("List1:3", "cmbAC:1"), adds a row to the selection ("List1+3"), or types over a text ("txtNewFL=350").
void act(QWidget& form, std::string_view what);
void play(QWidget& form, std::initializer_list<std::string_view> steps);
/// Presses one key.
void pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Lets events run until the condition holds; false when it does not hold within five seconds.
[[nodiscard]] bool waitFor(const std::function<bool()>& condition);

/// A message box that a test expects: its exact text (bytes of the code page) and the button to press. NoButton
/// presses Escape.
struct BoxAnswer {
    std::string text;
    QMessageBox::StandardButton button = QMessageBox::Ok;
};

/// Keeps what is expected while it lives. At its end every expectation must have been served.
class Expectation {
  public:
    explicit Expectation(std::function<void()> finish) : m_finish(std::move(finish)) {}
    Expectation(const Expectation&) = delete;
    Expectation& operator=(const Expectation&) = delete;
    ~Expectation() { m_finish(); }

  private:
    std::function<void()> m_finish;
};

/// Answers the message boxes that come up next, in this order, while the result lives.
[[nodiscard]] Expectation answerBoxes(std::vector<BoxAnswer> answers);
/// Hands the next modal dialog with this object name to `user`, who must close it, while the result lives.
[[nodiscard]] Expectation expectDialog(std::string_view objectName, std::function<void(QDialog&)> user);

/// Hands every modal dialog and message box to `user` while it lives, whatever else is expected.
class DialogService {
  public:
    explicit DialogService(std::function<void(QDialog&)> user);
    DialogService(const DialogService&) = delete;
    DialogService& operator=(const DialogService&) = delete;
    ~DialogService();
};

/// Watches for modal dialogs during the whole run: one that no test expects fails that test and is closed, so that
/// nothing hangs. Made once by the main function.
class DialogWatch : public QObject {
  public:
    DialogWatch();
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace vantor::test
