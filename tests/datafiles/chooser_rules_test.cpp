#include "alarmset/ui/picture_box.h"
#include "datafiles/chooser_front.h"
#include "datafiles/chooser_rules.h"
#include "datafiles/ui/data_file_chooser.h"
#include "datafiles/ui/overwrite_question.h"
#include "fakes.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <gtest/gtest.h>

namespace {

struct ChooserRulesTest : ::testing::Test, EngineFixture {
    QStringList calls;
    ChooserActions actions{[&](const QString& n) { calls.append("load " + n); },
                           [&](const QString& n) { calls.append("save " + n); },
                           [&](const QString& n) { calls.append("edit " + n); }};
    FileListState fileList{{"a.dat", "future.dat", "my.dat", "WPAPER.DAT"}, {false, false, false, false}, -1};

    bool confirm(ChooserMode mode, QString& typed) { return confirmChoice(ctx, mode, typed, fileList, actions); }
    void choose(int index) {
        fileList.selected[index] = true;
        fileList.current = index;
    }
};

struct ChooserWindowTest : ::testing::Test, EngineFixture {
    ChooserWindowTest() {
        clock.set(2002, 5, 1, 7, 0, 0);
        ctx.touchAlarmSet();
        writeFile("my.dat", "\"once 09:00:00\"\r\n");
        writeFile("WPAPER.DAT", "");
        writeFile(".early.dat", ""); // a name that can be typed and saved must be listed too
        writeFile("notes.txt", "");
        ctx.today.alarms.addItem("twice 10:00:00");
    }
    ~ChooserWindowTest() override {
        delete DataFileChooser::instance();
        delete OverwriteQuestion::instance();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

TEST_F(ChooserRulesTest, SaveAppendsDatUnlessItEndsSoInAnyCaseAndRefusesTheWallpaperFile) {
    const std::pair<const char*, const char*> names[] = {
        {"my", "my.dat"}, {"MY.DAT", "MY.DAT"}, {"my.dat.bak", "my.dat.bak.dat"}, {"my.Dat", "my.Dat"}};
    for (const auto& [typed, saved] : names) {
        QString box = typed;
        EXPECT_TRUE(confirm(ChooserMode::Save, box));
        EXPECT_EQ(box, saved);
        EXPECT_EQ(calls.takeLast(), QString("save ") + saved);
    }
    // From the list only the selected current item counts; the reserved name is refused there as it is typed
    // (ChooserWindowTest).
    QString box;
    fileList.current = 2;
    EXPECT_FALSE(confirm(ChooserMode::Save, box));
    choose(3);
    EXPECT_FALSE(confirm(ChooserMode::Save, box));
    EXPECT_EQ(notices.warnings, QStringList({"No file is chosen", "Wpaper.dat has data of wallpaper"}));
    choose(2);
    EXPECT_TRUE(confirm(ChooserMode::Save, box));
    EXPECT_EQ(calls, QStringList{"save my.dat"});
}

TEST_F(ChooserRulesTest, LoadTakesTheTypedNameAsItStandsThenEverySelectedFileInOrder) {
    fileList.selected = {true, false, true, true};
    QString box = "my";
    EXPECT_TRUE(confirm(ChooserMode::Load, box));
    EXPECT_EQ(calls, QStringList({"load my", "load a.dat", "load my.dat", "load WPAPER.DAT"}));
}

TEST_F(ChooserRulesTest, OpenAppendsDatMindingTheCase) {
    QString box = "A.DAT";
    EXPECT_TRUE(confirm(ChooserMode::Open, box));
    box.clear();
    choose(1);
    EXPECT_TRUE(confirm(ChooserMode::Open, box));
    EXPECT_EQ(calls, QStringList({"edit A.DAT.dat", "edit future.dat"}));
}

TEST_F(ChooserRulesTest, NothingChosenIsRefusedAndCallsNothing) {
    QString box;
    EXPECT_FALSE(confirm(ChooserMode::Load, box)); // files listed, none selected
    fileList = {};
    for (ChooserMode mode : {ChooserMode::Load, ChooserMode::Save, ChooserMode::Open})
        EXPECT_FALSE(confirm(mode, box));
    EXPECT_EQ(notices.warnings, QStringList(4, "No file is chosen"));
    EXPECT_TRUE(calls.isEmpty());
}

TEST_F(ChooserRulesTest, ListAndTypedNameExcludeEachOtherWhereOneNameIsWanted) {
    choose(1);
    EXPECT_FALSE(fileClickEmptiesInput(ChooserMode::Load, fileList));
    EXPECT_TRUE(fileClickEmptiesInput(ChooserMode::Save, fileList));
    fileList.selected[1] = false; // a Ctrl click that unselected it
    EXPECT_FALSE(fileClickEmptiesInput(ChooserMode::Open, fileList));
    EXPECT_FALSE(inputFocusUnselectsFile(ChooserMode::Load, fileList));
    EXPECT_TRUE(inputFocusUnselectsFile(ChooserMode::Save, fileList));
    // Ctrl (17) and Shift (16) can't add a second file; in Open only while the list holds files.
    EXPECT_TRUE(modifierKeyUnselectsFile(ChooserMode::Save, FileListState{}, 17));
    EXPECT_FALSE(modifierKeyUnselectsFile(ChooserMode::Open, FileListState{}, 16));
    EXPECT_FALSE(modifierKeyUnselectsFile(ChooserMode::Load, fileList, 16));
    EXPECT_FALSE(modifierKeyUnselectsFile(ChooserMode::Save, fileList, 65));
}

TEST(ChooserKeys, NamesHoldLettersDigitsAndFewMarksOnly) {
    for (QChar c : QStringLiteral("azAZ09_-.\b"))
        EXPECT_TRUE(chooserNameKeyPasses(c)) << int(c.unicode());
    for (QChar c : QStringLiteral(" /\\:\"*é\r"))
        EXPECT_FALSE(chooserNameKeyPasses(c)) << int(c.unicode());
}

TEST(ChooserFront, AHigherClaimOutranksAndTheFirstHolderGetsTheFrontBack) {
    int32_t claimant = 13;
    FrontClaim question(157);
    question.open(claimant);
    EXPECT_EQ(claimant, 157);
    question.open(claimant); // asked again while open: the first holder stays remembered
    EXPECT_EQ(question.previousFront(), 13);

    claimant = 1000001; // a warning came up
    EXPECT_FALSE(question.lostFocus(claimant));
    EXPECT_EQ(claimant, 1000001);
    claimant = 0; // the warning went
    EXPECT_TRUE(question.lostFocus(claimant));
    EXPECT_EQ(claimant, 157);
    EXPECT_EQ(question.close(claimant), 13);
    EXPECT_EQ(claimant, 0);
}

TEST_F(ChooserWindowTest, SaveModeListsDataFilesAndAsksBeforeOverwriting) {
    ctx.front.claimant = 0;
    DataFileChooser* form = DataFileChooser::openSave(ctx);
    EXPECT_TRUE(form->savePicture->isVisibleTo(form) && !form->loadPicture->isVisibleTo(form));
    EXPECT_EQ(ctx.front.claimant, 13);
    QStringList names;
    for (int i = 0; i < form->fileList->count(); ++i)
        names.append(form->fileList->item(i)->text());
    EXPECT_EQ(names, QStringList({".early.dat", "my.dat", "WPAPER.DAT"}));

    // Only name characters can be typed.
    typeText(form->input, "WP A/PER");
    EXPECT_EQ(form->input->text(), "WPAPER");
    // Nor can a pasted path lead out of the folder.
    form->input->insert("../../escaped");
    EXPECT_EQ(form->input->text(), "WPAPER");
    form->onConfirmClicked();
    EXPECT_EQ(form->input->text(), "WPAPER.dat");
    EXPECT_EQ(notices.warnings, QStringList({"Wpaper.dat has data of wallpaper"})); // refused: the window stays
    EXPECT_EQ(DataFileChooser::instance(), form);

    form->input->setText("my");
    const QPointer<DataFileChooser> closing = form;
    form->onConfirmClicked();
    EXPECT_EQ(std::tuple(DataFileChooser::instance(), !closing || !closing->isVisible()), std::tuple(nullptr, true));
    const QPointer<OverwriteQuestion> question = OverwriteQuestion::instance();
    ASSERT_TRUE(question);
    EXPECT_EQ(readFile("my.dat"), QByteArray("\"once 09:00:00\"\r\n"));
    question->onYesClicked();
    EXPECT_EQ(OverwriteQuestion::instance(), nullptr);
    EXPECT_TRUE(!question || !question->isVisible());
    EXPECT_EQ(readFile("my.dat"), QByteArray("\"twice 10:00:00\"\r\n"));
    EXPECT_EQ(ctx.front.claimant, 0);
}

TEST_F(ChooserWindowTest, AFileClickEmptiesTheTypedNameWhereOneNameIsWanted) {
    DataFileChooser* form = DataFileChooser::openEditor(ctx);
    form->input->setText("typed");
    form->fileList->setCurrentRow(0);
    EXPECT_TRUE(form->input->text().isEmpty());
}
