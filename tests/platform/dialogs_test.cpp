// File and folder dialogs, driven in the toolkit's own dialogs over real folders.
#include "foundation/native_path.h"
#include "platform/file_dialogs.h"
#include "support/form_driver.h"

namespace vantor {
namespace {

using test::expectDialog;

class DialogsTest : public test::Fixture {
  protected:
    /// Lets `user` have the next file dialog, which must start in the test's folder.
    auto expectFileDialog(std::function<void(QFileDialog&)> user) const {
        return expectDialog("fileDialog", [this, user = std::move(user)](QDialog& dialog) {
            auto& chooser = dynamic_cast<QFileDialog&>(dialog);
            EXPECT_EQ(chooser.directory().canonicalPath(), QDir(folder()).canonicalPath());
            user(chooser);
        });
    }
    static void enter(QFileDialog& dialog, const char* name) { test::enterFileName(dialog, QLatin1String(name)); }
    static void cancel(QFileDialog& dialog) { test::pressKey(dialog, Qt::Key_Escape); }
};

TEST_F(DialogsTest, AFileIsChosenInTheFolderTold) {
    writeFile("Flightplans.txt", "");
    cSharedFileSel chooser;
    chooser.DefaultPath(path(""));
    chooser.Filepattern("*.TXT");
    const auto dialogs = expectFileDialog([](QFileDialog& dialog) {
#ifndef _WIN32 // some desktops tell capitals apart
        EXPECT_EQ(dialog.nameFilters().constFirst(), QStringLiteral("*.TXT (*.[Tt][Xx][Tt])"));
#endif
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        enter(dialog, "Flightplans.txt");
    });
    chooser.GetExistingFilename();
    EXPECT_EQ(chooser.Filename(), "Flightplans.txt");
    const auto others = expectFileDialog([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select your aircraft.txt file"));
        enter(dialog, "new.txt"); // a file need not exist
    });
    EXPECT_EQ(askforFilename("Select your aircraft.txt file", path("old.txt")), path("new.txt"));
    const auto cancelled = expectFileDialog(cancel);
    EXPECT_EQ(askforFilename("Title", path("old.txt")), "");
}

TEST_F(DialogsTest, AFolderIsChosenWithoutATrailingBackslash) {
    writeFile("sub\\x", "");
    setProgramFile(folder() / "Vantor"); // where a dialog without a start folder starts
    cSharedFileSel chooser;
    const auto dialogs = expectFileDialog([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), QStringLiteral("&Open"));
        enter(dialog, "sub");
    });
    chooser.GetPath();
    EXPECT_FALSE(chooser.Cancelled());
    EXPECT_EQ(chooser.Path(), path("sub"));
    const auto cancelled = expectFileDialog(cancel);
    chooser.GetPath();
    EXPECT_TRUE(chooser.Cancelled());
}

TEST_F(DialogsTest, OneOfTwoTrailingBackslashesIsDropped) {
    cSharedFileSel chooser;
    for (const auto& [given, kept] : {std::pair{"C:\\\\", "C:\\"}, {"\\\\", "\\\\"}, {"C:", "C:"}, {"C:\\", "C:\\"}}) {
        chooser.DefaultPath(given);
        EXPECT_EQ(chooser.DefaultPath(), kept);
    }
}

} // namespace
} // namespace vantor
