// Tests of the Qt side of the program.
// File, folder and printer dialogs, driven in the toolkit's own dialogs over real folders.
#include "foundation/native_path.h"
#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "platform/printer_choice.h"
#include "support/form_driver.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QPrinter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantor {
namespace {

using test::enterFileName;
using test::expectDialog;

class DialogsTest : public testing::Test {
  protected:
    DialogsTest() {
        EXPECT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("sub")));
        QFile file(folder.filePath(QStringLiteral("plan.txt")));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
    }

    QTemporaryDir folder;
    std::string root = fromQtPath(folder.path());
};

TEST_F(DialogsTest, AskForFilenameStartsInTheFilesFolder) {
    const auto dialogs = expectDialog("fileDialog", [&](QDialog& dialog) {
        auto& chooser = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(chooser.windowTitle(), QStringLiteral("Select your aircraft.txt file"));
        EXPECT_EQ(chooser.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        enterFileName(dialog, QStringLiteral("plan.txt"));
    });
    EXPECT_EQ(askforFilename("Select your aircraft.txt file", root + "\\old.txt"), root + "\\plan.txt");
    const auto cancelled = expectDialog("fileDialog", [](QDialog& dialog) { test::pressKey(dialog, Qt::Key_Escape); });
    EXPECT_EQ(askforFilename("Title", root + "\\old.txt", "*.TXT"), "");
}

TEST_F(DialogsTest, AFileNeedNotExistAndThePatternIsTheOneFilter) {
    const auto dialogs = expectDialog("fileDialog", [&](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).nameFilters(), QStringList{QStringLiteral("*.TXT")});
        enterFileName(dialog, QStringLiteral("new.txt"));
    });
    cSharedFileSel chooser;
    chooser.SetCaption("Choose a flight plan");
    chooser.Filepattern("*.TXT");
    chooser.DefaultPath(root);
    chooser.GetFilename();
    EXPECT_FALSE(chooser.Cancelled());
    EXPECT_EQ(chooser.Path(), root);
    EXPECT_EQ(chooser.Filename(), "new.txt");
}

TEST_F(DialogsTest, AFolderIsChosenWithoutATrailingBackslash) {
    cSharedFileSel chooser;
    chooser.SetCaption("Please locate the Flight Sim folder");
    chooser.DefaultPath(root + "\\");
    {
        const auto dialogs =
            expectDialog("fileDialog", [](QDialog& dialog) { enterFileName(dialog, QStringLiteral("sub")); });
        chooser.GetPath();
    }
    EXPECT_FALSE(chooser.Cancelled());
    EXPECT_EQ(chooser.Path(), root + "\\sub");
    const auto dialogs = expectDialog("fileDialog", [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    chooser.GetPath();
    EXPECT_TRUE(chooser.Cancelled());
}

TEST_F(DialogsTest, WithoutAStartFolderTheProgramsIsTaken) {
    const std::string before = programFolder();
    setProgramFile(std::filesystem::path(QFile::encodeName(folder.filePath(QStringLiteral("Vantor"))).toStdString()));
    const auto dialogs = expectDialog("fileDialog", [&](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    cSharedFileSel chooser;
    chooser.GetFilename();
    EXPECT_TRUE(chooser.Cancelled());
    setProgramFile(nativePath(before) / "Vantor");
}

TEST(FileSelTest, OneOfTwoTrailingBackslashesIsDropped) {
    cSharedFileSel chooser;
    for (const auto& [given, kept] : {std::pair{"C:\\\\", "C:\\"}, {"\\\\", "\\\\"}, {"C:", "C:"}, {"C:\\", "C:\\"}}) {
        chooser.DefaultPath(given);
        EXPECT_EQ(chooser.DefaultPath(), kept);
    }
}

#ifndef _WIN32 // the dialog there is the system's own
TEST(PrinterChoiceTest, AChoiceHoldsForTheRunAndACancelChangesNothing) {
    QWidget owner;
    const auto dialogs = expectDialog("printDialog", [](QDialog& dialog) { test::pressKey(dialog, Qt::Key_Escape); });
    QPrinter& before = currentPrinter();
    before.setDocName(QStringLiteral("kept"));
    chooseprinter(&owner, "Schedule");
    EXPECT_EQ(&currentPrinter(), &before);
    EXPECT_EQ(currentPrinter().docName(), QStringLiteral("kept"));
}
#endif

} // namespace
} // namespace vantor
