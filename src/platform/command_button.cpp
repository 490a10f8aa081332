#include "platform/command_button.h"

#include <QFontMetrics>

#include <algorithm>

namespace vantor {

QSize CommandButton::sizeHint() const {
    const QSize hint = QPushButton::sizeHint();
    const QFontMetrics metrics(font());
    const int room = hint.height() - metrics.height(); // as much beside the text as above and below it
    const int text = metrics.size(Qt::TextShowMnemonic, this->text()).width();
    return {std::min(hint.width(), text + room), hint.height()};
}

} // namespace vantor
