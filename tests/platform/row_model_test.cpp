// Tests of the Qt side of the program.
// The row model against Qt's own checker of models, and the code page at its edge.
#include "platform/code_page.h"
#include "platform/row_model.h"
#include "platform/row_width.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QFontMetrics>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace vantor {
namespace {

TEST(CodePageTest, EveryByteComesBackAndForeignLettersBecomeQuestionMarks) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(fromQString(toQString(all)), all);
    EXPECT_EQ(toQString("Z\xFCrich \x80"), QStringLiteral(u"Z\u00FCrich \u20AC"));
    EXPECT_EQ(fromQString(QStringLiteral(u"\u0416-\u4E2D-ok")), "?-?-ok");
    const std::string withNull("a\0b", 3);
    EXPECT_EQ(fromQString(toQString(withNull)), withNull);
}

TEST(RowModelTest, EveryChangeKeepsTheModelInOrder) {
    RowModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.setRows({{"one", 1}, {"two", 2}, {"three", 3}});
    EXPECT_EQ(resets.count(), 1);
    model.append({"four", 4});
    model.remove(1);
    model.setText(0, "ONE");
    EXPECT_EQ(model.rows(), (ListRows{{"ONE", 1}, {"three", 3}, {"four", 4}}));
    ASSERT_TRUE(model.insertRows(1, 2, {}));
    ASSERT_TRUE(model.setData(model.index(1), QStringLiteral(u"n\u00E9e"), Qt::EditRole));
    ASSERT_TRUE(model.setData(model.index(1), 7, Qt::UserRole));
    EXPECT_EQ(model.text(1), "n\xE9"
                             "e");
    EXPECT_EQ(model.itemData32(1), 7);
    ASSERT_TRUE(model.removeRows(0, 4, {}));
    EXPECT_EQ(model.rows(), (ListRows{{"four", 4}}));
    model.setRows({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(RowModelTest, OutsideTheRowsIsEmptyAndChangesNothing) {
    RowModel model;
    model.setRows({{"only", 5}});
    for (const int row : {-1, 1, 1000}) {
        EXPECT_EQ(model.text(row), "");
        EXPECT_EQ(model.itemData32(row), 0);
        model.remove(row);
        model.setText(row, "x");
    }
    EXPECT_FALSE(model.insertRows(2, 1, {}));
    EXPECT_FALSE(model.removeRows(0, 2, {}));
    EXPECT_FALSE(model.setData(model.index(0), 1, Qt::CheckStateRole));
    EXPECT_EQ(model.rows(), (ListRows{{"only", 5}}));
    EXPECT_FALSE(model.data(model.index(0), Qt::DecorationRole).isValid());
}

TEST(RowWidthTest, TheWidestRowIsNotTheLongestText) {
    RowModel model;
    const QFontMetrics metrics{QFont()};
    EXPECT_EQ(widestRow(model, metrics), 0);
    model.setRows({{"iiiiiiiiiiii", 0}, {"WWWWWWWWWW", 0}, {"", 0}});
    EXPECT_GE(widestRow(model, metrics), metrics.horizontalAdvance(QStringLiteral("WWWWWWWWWW")));
}

} // namespace
} // namespace vantor
