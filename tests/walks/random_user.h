// Random walks: a user who does whatever the windows offer.
// One action at a time, drawn from a seed, so that a walk can be walked again.
#pragma once

#include "platform/combo_box.h"
#include "platform/list_box.h"
#include "platform/picture_box.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>

#include <deque>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace vantor::test {

class RandomUser {
  public:
    /// `afterDialogAction` runs behind each action in a dialog.
    RandomUser(unsigned seed, std::function<void()> afterDialogAction)
        : m_random(seed), m_afterDialogAction(std::move(afterDialogAction)) {}

    /// Does one thing to one control of the window, or to the window itself, and tells what.
    std::string act(QWidget& window);
    /// Does some things in a dialog and leaves it. Whatever the dialog is, it is closed afterwards.
    void serve(QDialog& dialog);
    /// A number from 0 to `count` - 1.
    [[nodiscard]] int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    /// How many things were done, dialogs included, and the latest of them.
    [[nodiscard]] int actions() const { return m_actions; }
    [[nodiscard]] const std::deque<std::string>& history() const { return m_history; }

    /// Answers to the next boxes in place of random ones: true presses Yes or OK.
    std::deque<bool> answers;
    /// What is typed into a file dialog in place of a random name.
    std::deque<std::string> fileNames;

  private:
    struct Action {
        int weight;
        std::string what;
        std::function<void()> run;
    };
    using Actions = std::vector<Action>;

    void offer(Actions& actions, QWidget& widget);
    void offerButton(Actions& actions, QAbstractButton& button);
    void offerTextBox(Actions& actions, QLineEdit& box);
    void offerList(Actions& actions, ListBox& list);
    void offerCombo(Actions& actions, ComboBox& combo);
    void offerPicture(Actions& actions, PictureBox& picture);
    void offerWindow(Actions& actions, QWidget& window);
    std::string run(const Actions& actions);
    void note(const std::string& what);

    void answerBox(QDialog& box);
    void answerFileDialog(QDialog& dialog);
    void answerPrintDialog(QDialog& dialog);
    void leave(QDialog& dialog);

    [[nodiscard]] std::string textFor(const std::string& control);
    template <class List>
    [[nodiscard]] auto oneOf(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }

    std::mt19937 m_random;
    std::function<void()> m_afterDialogAction;
    std::deque<std::string> m_history;
    int m_actions = 0;
};

} // namespace vantor::test
