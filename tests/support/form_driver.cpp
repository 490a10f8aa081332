#include "support/form_driver.h"

#include <deque>

namespace vantor::test {

namespace {

std::deque<BoxAnswer> expectedBoxes;

struct ExpectedDialog {
    std::string objectName;
    std::function<void(QDialog&)> user;
};
std::deque<ExpectedDialog> expectedDialogs;
std::function<void(QDialog&)> everyDialog;

void close(QDialog& dialog) {
    dialog.reject();
    if (dialog.isVisible()) {
        dialog.done(QDialog::Rejected);
    }
}

/// Hands a dialog to `user`, who must close it.
void handTo(const std::function<void(QDialog&)>& user, QDialog& dialog, const std::string& name) {
    const QPointer<QDialog> guard(&dialog);
    EXPECT_NO_THROW(user(dialog)); // nothing may leave through the event loop
    if (guard && guard->isVisible()) {
        ADD_FAILURE() << "it stayed open: " << name;
        close(dialog);
    }
}

void serveBox(QMessageBox& box) {
    const std::string text = fromQString(box.text());
    if (expectedBoxes.empty()) {
        ADD_FAILURE() << "unexpected message box: " << text;
        close(box);
        return;
    }
    const BoxAnswer answer = std::move(expectedBoxes.front());
    expectedBoxes.pop_front();
    EXPECT_EQ(text, fromQString(boxText(answer.text)));
    const auto press = [&](QDialog&) {
        if (answer.button == QMessageBox::NoButton) {
            QTest::keyClick(&box, Qt::Key_Escape);
        } else if (QAbstractButton* button = box.button(answer.button)) {
            QTest::mouseClick(button, Qt::LeftButton);
        } else {
            ADD_FAILURE() << "the message box lacks the expected button: " << text;
        }
    };
    handTo(press, box, text);
}

void serveDialog(QDialog& dialog) {
    const std::string name = fromQString(dialog.objectName());
    if (expectedDialogs.empty() || expectedDialogs.front().objectName != name) {
        ADD_FAILURE() << "unexpected dialog: " << name << " \"" << fromQString(dialog.windowTitle()) << '"';
        close(dialog);
        return;
    }
    const ExpectedDialog expected = std::move(expectedDialogs.front());
    expectedDialogs.pop_front();
    handTo(expected.user, dialog, name);
}

void serve(QDialog& dialog) {
    if (everyDialog) {
        handTo(everyDialog, dialog, fromQString(dialog.objectName()));
    } else if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        serveBox(*box);
    } else {
        serveDialog(dialog);
    }
}

QPoint clickPoint(const QWidget& widget) {
    const bool hasIndicator =
        qobject_cast<const QCheckBox*>(&widget) != nullptr || qobject_cast<const QRadioButton*>(&widget) != nullptr;
    return hasIndicator ? QPoint(8, widget.height() / 2) : widget.rect().center();
}

QPoint rowPoint(ListBox& list, int row) {
    const QModelIndex index = list.model()->index(row, 0);
    if (!index.isValid()) {
        throw std::runtime_error("no such row: " + std::to_string(row));
    }
    list.scrollTo(index);
    const QRect place = list.visualRect(index).intersected(list.viewport()->rect());
    if (place.isEmpty()) {
        throw std::runtime_error("the row can't be seen: " + std::to_string(row));
    }
    return place.center();
}

void expectUsable(const QWidget& widget) {
    EXPECT_TRUE(widget.isVisible()) << fromQString(widget.objectName()) << " is hidden";
    EXPECT_TRUE(widget.isEnabled()) << fromQString(widget.objectName()) << " is disabled";
}

} // namespace

void click(QWidget& control) {
    expectUsable(control);
    QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier, clickPoint(control));
}

void click(QWidget& form, std::string_view name) {
    click(control<QWidget>(form, name));
}

void clickRow(ListBox& list, int row, Qt::KeyboardModifiers modifiers) {
    expectUsable(list);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, rowPoint(list, row));
}

void doubleClickRow(ListBox& list, int row) {
    clickRow(list, row);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, rowPoint(list, row));
}

void pickRow(ComboBox& combo, int row) {
    expectUsable(combo);
    combo.setFocus();
    combo.showPopup();
    QAbstractItemView* view = combo.view();
    const QModelIndex index = combo.model()->index(row, 0);
    view->scrollTo(index);
    const QPoint point = view->visualRect(index).center();
    QTest::mouseMove(view->viewport(), point);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    EXPECT_FALSE(view->isVisible()) << "the pick did not close the list";
}

void typeOver(QWidget& field, std::string_view text) {
    expectUsable(field);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, toQString(text));
}

void act(QWidget& form, std::string_view what) {
    const std::size_t mark = what.find_first_of(":+=");
    auto& widget = control<QWidget>(form, what.substr(0, mark));
    if (mark == std::string_view::npos) {
        click(widget);
    } else if (what[mark] == '=') {
        typeOver(widget, what.substr(mark + 1));
    } else if (const int row = std::stoi(std::string(what.substr(mark + 1)));
               auto* const list = qobject_cast<ListBox*>(&widget)) {
        clickRow(*list, row, what[mark] == '+' ? Qt::ControlModifier : Qt::NoModifier);
    } else {
        pickRow(dynamic_cast<ComboBox&>(widget), row);
    }
}

void play(QWidget& form, std::initializer_list<std::string_view> steps) {
    for (const std::string_view step : steps) {
        SCOPED_TRACE(step);
        act(form, step);
    }
}

std::string rowsOf(const ListRows& rows) {
    std::string all;
    for (const ListRow& row : rows) {
        all += row.text + "|";
    }
    return all;
}

void enterFileName(QDialog& dialog, const QString& name) {
    auto& edit = control<QLineEdit>(dialog, "fileNameEdit");
    edit.setFocus();
    edit.setText(name); // as if pasted: typed slashes move the dialog while its lists are still read
    QTest::keyClick(&edit, Qt::Key_Return);
    // The first Enter may go to the list of completions.
    if (dialog.isVisible()) {
        QTest::keyClick(&edit, Qt::Key_Return);
    }
}

QRect extentOf(const QImage& image, const std::function<bool(QRgb)>& matches) {
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (matches(image.pixel(x, y))) {
                found |= QRect(x, y, 1, 1);
            }
        }
    }
    return found;
}

void pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&widget, key, modifiers);
}

bool waitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 5000);
}

Expectation answerBoxes(std::vector<BoxAnswer> answers) {
    for (BoxAnswer& answer : answers) {
        expectedBoxes.push_back(std::move(answer));
    }
    return Expectation([] {
        for (const BoxAnswer& answer : std::exchange(expectedBoxes, {})) {
            ADD_FAILURE() << "a message box never came up: " << answer.text;
        }
    });
}

Expectation expectDialog(std::string_view objectName, std::function<void(QDialog&)> user) {
    expectedDialogs.push_back({std::string(objectName), std::move(user)});
    return Expectation([] {
        for (const ExpectedDialog& dialog : std::exchange(expectedDialogs, {})) {
            ADD_FAILURE() << "a dialog never came up: " << dialog.objectName;
        }
    });
}

DialogService::DialogService(std::function<void(QDialog&)> user) {
    everyDialog = std::move(user);
}

DialogService::~DialogService() {
    everyDialog = {};
}

DialogWatch::DialogWatch() {
    qApp->installEventFilter(this);
}

bool DialogWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        auto* dialog = qobject_cast<QDialog*>(watched);
        if (dialog != nullptr && dialog->isModal()) {
            // Served from the dialog's own event loop, when it stands as the user would see it.
            QTimer::singleShot(0, dialog, [dialog] {
                if (dialog->isVisible()) {
                    serve(*dialog);
                }
            });
        }
    }
    return false;
}

} // namespace vantor::test
