// Windows that remember where they stood, held to the screen.
#include "platform/window_places.h"
#include "support/form_driver.h"

namespace vantor::test {
namespace {

class WindowPlacesTest : public Fixture {
  protected:
    // What is seen of a table as it opens, as "2:90 0:50"; the user hides column 1 and puts the last column first.
    [[nodiscard]] std::string openedColumns() const {
        const WindowPlaces places(toQtPath(path("Vantor2.window")));
        QDialog dialog;
        dialog.setObjectName(QStringLiteral("frmAny"));
        QTableWidget table(1, 3, &dialog);
        table.setObjectName(QStringLiteral("tblAny"));
        QHeaderView& header = *table.horizontalHeader();
        header.setSectionsMovable(true);
        header.setDefaultSectionSize(50);
        dialog.show();
        std::string seen;
        for (int place = 0; place < 3; ++place) {
            const int column = header.logicalIndex(place);
            seen += header.isSectionHidden(column)
                        ? ""
                        : std::to_string(column) + ":" + std::to_string(header.sectionSize(column)) + " ";
        }
        header.moveSection(header.visualIndex(2), 0);
        header.resizeSection(2, 90);
        header.hideSection(1);
        dialog.close();
        return seen;
    }

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

TEST_F(WindowPlacesTest, ColumnsStandAsTheyWereLeft) {
    const std::string own = "0:50 1:50 2:50 ";
    EXPECT_EQ(openedColumns(), own);
    EXPECT_EQ(openedColumns(), "2:90 0:50 ");
    for (const char* const broken :
         {"", "0:50 1:50", "0:50 1:50 1:50", "0:50 1:50 3:50", "0:0 1:0 2:0", "0:50 1:-1 2:50", "0:50 1:9999999 2:50",
          "x:50 1:50 2:50", "0:50 1:50 2:50 0:50"}) {
        writeFile("Vantor2.window", std::string("[General]\nfrmAny.tblAny=") + broken + "\n");
        EXPECT_EQ(openedColumns(), own) << broken;
    }
}

} // namespace
} // namespace vantor::test
