#include "alarmset/ui/picture_box.h"
#include "datafiles/chooser_front.h"
#include "datafiles/chooser_rules.h"
#include "datafiles/ui/form13.h"
#include "datafiles/ui/form14.h"
#include "fakes.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

struct ChooserRulesTest : ::testing::Test, EngineFixture {
    QStringList calls;
    ChooserActions actions{[&](const QString& n) { calls.append("load " + n); },
                           [&](const QString& n) { calls.append("save " + n); },
                           [&](const QString& n) { calls.append("edit " + n); }};
    FileListState file1{{"a.dat", "future.dat", "my.dat", "WPAPER.DAT"}, {false, false, false, false}, -1};

    bool confirm(ChooserMode mode, QString& typed) { return ConfirmChoice(ctx, mode, typed, file1, actions); }
    void choose(int index) {
        file1.selected[index] = true;
        file1.current = index;
    }
};

struct ChooserWindowTest : ::testing::Test, EngineFixture {
    ChooserWindowTest() {
        clock.set(2002, 5, 1, 7, 0, 0);
        ctx.touchForm4();
        writeFile("my.dat", "\"once 09:00:00\"\r\n");
        writeFile("WPAPER.DAT", "");
        writeFile("notes.txt", "");
        ctx.lstData.addItem("twice 10:00:00");
    }
    ~ChooserWindowTest() override {
        delete Form14::instance();
        delete Form13::instance();
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
    QString box = "WPAPER";
    EXPECT_FALSE(confirm(ChooserMode::Save, box));
    EXPECT_EQ(box, "WPAPER.dat");
    EXPECT_EQ(notices.warnings, QStringList({"Wpaper.dat has data of wallpaper"}));

    // From the list: only the selected current item counts, and the reserved name is refused there too.
    box.clear();
    file1.current = 2;
    EXPECT_FALSE(confirm(ChooserMode::Save, box));
    EXPECT_EQ(notices.warnings.last(), "No file is chosen");
    choose(3);
    EXPECT_FALSE(confirm(ChooserMode::Save, box));
    EXPECT_EQ(notices.warnings.last(), "Wpaper.dat has data of wallpaper");
    choose(2);
    EXPECT_TRUE(confirm(ChooserMode::Save, box));
    ASSERT_FALSE(calls.isEmpty());
    EXPECT_EQ(calls.last(), "save my.dat");
}

TEST_F(ChooserRulesTest, LoadTakesTheTypedNameAsItStandsThenEverySelectedFileInOrder) {
    file1.selected = {true, false, true, true};
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
    file1 = {};
    for (ChooserMode mode : {ChooserMode::Load, ChooserMode::Save, ChooserMode::Open})
        EXPECT_FALSE(confirm(mode, box));
    EXPECT_EQ(notices.warnings, QStringList(4, "No file is chosen"));
    EXPECT_TRUE(calls.isEmpty());
}

TEST_F(ChooserRulesTest, ListAndTypedNameExcludeEachOtherWhereOneNameIsWanted) {
    choose(1);
    EXPECT_FALSE(FileClickEmptiesInput(ChooserMode::Load, file1));
    EXPECT_TRUE(FileClickEmptiesInput(ChooserMode::Save, file1));
    file1.selected[1] = false; // a Ctrl click that unselected it
    EXPECT_FALSE(FileClickEmptiesInput(ChooserMode::Open, file1));
    EXPECT_FALSE(InputFocusUnselectsFile(ChooserMode::Load, file1));
    EXPECT_TRUE(InputFocusUnselectsFile(ChooserMode::Save, file1));
    // Ctrl (17) and Shift (16) can't add a second file; in Open only while the list holds files.
    EXPECT_TRUE(ModifierKeyUnselectsFile(ChooserMode::Save, FileListState{}, 17));
    EXPECT_FALSE(ModifierKeyUnselectsFile(ChooserMode::Open, FileListState{}, 16));
    EXPECT_FALSE(ModifierKeyUnselectsFile(ChooserMode::Load, file1, 16));
    EXPECT_FALSE(ModifierKeyUnselectsFile(ChooserMode::Save, file1, 65));
}

TEST(ChooserKeys, NamesHoldLettersDigitsAndFewMarksOnly) {
    for (QChar c : QStringLiteral("azAZ09_-.\b"))
        EXPECT_TRUE(ChooserNameKeyPasses(c)) << int(c.unicode());
    for (QChar c : QStringLiteral(" /\\:\"*é\r"))
        EXPECT_FALSE(ChooserNameKeyPasses(c)) << int(c.unicode());
}

TEST(ChooserFront, AHigherClaimOutranksAndTheFirstHolderGetsTheFrontBack) {
    int32_t lngTopWho = 13;
    FrontClaim form13(157);
    form13.open(lngTopWho);
    EXPECT_EQ(lngTopWho, 157);
    form13.open(lngTopWho); // asked again while open: the first holder stays remembered
    EXPECT_EQ(form13.lngPrevTop(), 13);

    lngTopWho = 1000001; // a warning came up
    EXPECT_FALSE(form13.lostFocus(lngTopWho));
    EXPECT_EQ(lngTopWho, 1000001);
    lngTopWho = 0; // the warning went
    EXPECT_TRUE(form13.lostFocus(lngTopWho));
    EXPECT_EQ(lngTopWho, 157);
    EXPECT_EQ(form13.close(lngTopWho), 13);
    EXPECT_EQ(lngTopWho, 0);
}

TEST_F(ChooserWindowTest, SaveModeListsDataFilesAndAsksBeforeOverwriting) {
    ctx.m.lngTopWho = 0;
    Form14* form = Form14::openSave(ctx);
    EXPECT_TRUE(form->imgSave->isVisibleTo(form) && !form->imgLoad->isVisibleTo(form));
    EXPECT_EQ(ctx.m.lngTopWho, 13);
    QStringList names;
    for (int i = 0; i < form->File1->count(); ++i)
        names.append(form->File1->item(i)->text());
    EXPECT_EQ(names, QStringList({"my.dat", "WPAPER.DAT"}));

    // Only name characters can be typed.
    typeText(form->txtInput, "WP A/PER");
    EXPECT_EQ(form->txtInput->text(), "WPAPER");
    // Nor can a pasted path lead out of the folder.
    form->txtInput->insert("../../escaped");
    EXPECT_EQ(form->txtInput->text(), "WPAPER");
    form->cmdConfirm_Click();
    EXPECT_EQ(form->txtInput->text(), "WPAPER.dat");
    EXPECT_EQ(notices.warnings.size(), 1); // refused: the window stays
    EXPECT_EQ(Form14::instance(), form);

    form->txtInput->setText("my");
    const QPointer<Form14> closing = form;
    form->cmdConfirm_Click();
    EXPECT_EQ(Form14::instance(), nullptr);
    EXPECT_TRUE(!closing || !closing->isVisible());
    const QPointer<Form13> question = Form13::instance();
    ASSERT_TRUE(question);
    EXPECT_EQ(readFile("my.dat"), QByteArray("\"once 09:00:00\"\r\n"));
    question->cmdYes_Click();
    EXPECT_EQ(Form13::instance(), nullptr);
    EXPECT_TRUE(!question || !question->isVisible());
    EXPECT_EQ(readFile("my.dat"), QByteArray("\"twice 10:00:00\"\r\n"));
    EXPECT_EQ(ctx.m.lngTopWho, 0);
}

TEST_F(ChooserWindowTest, AFileClickEmptiesTheTypedNameWhereOneNameIsWanted) {
    Form14* form = Form14::openEditor(ctx);
    form->txtInput->setText("typed");
    form->File1->setCurrentRow(0);
    EXPECT_TRUE(form->txtInput->text().isEmpty());
}
