// Tests of the Qt side of the program.
// Windows that remember where they stood, held to the screen.
#include "platform/code_page.h"
#include "platform/window_places.h"
#include "support/fixture.h"

#include <QDialog>
#include <QScreen>

namespace vantor::test {
namespace {

class WindowPlacesTest : public Fixture {
  protected:
    // The size of a dialog as it opens; the user makes it 300 by 200 before it is closed.
    [[nodiscard]] QSize opened(QSize told) const {
        const WindowPlaces places(toQtPath(path("Vantor2.window")));
        QDialog dialog;
        dialog.setObjectName(QStringLiteral("vantor::frmAny"));
        dialog.resize(told);
        dialog.show();
        const QSize size = dialog.size();
        const QRect screen = dialog.screen()->availableGeometry();
        EXPECT_TRUE(screen.contains(dialog.geometry())) << "it stands outside the screen";
        dialog.setGeometry(40, 50, 300, 200);
        dialog.close();
        return size;
    }
};

TEST_F(WindowPlacesTest, OpenAsTheyWereLeftAndOnTheScreen) {
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const QSize huge = opened(screen * 2);
    EXPECT_LT(huge.height(), screen.height()) << "no room for the title";
    EXPECT_GT(huge.height(), screen.height() * 8 / 10);
    EXPECT_EQ(opened(QSize(400, 300)), QSize(300, 200));
    writeFile("Vantor2.window", "[General]\r\nfrmAny=@ByteArray(broken)\r\n[[\x01");
    EXPECT_EQ(opened(QSize(400, 300)), QSize(400, 300));
}

} // namespace
} // namespace vantor::test
