#include "datafiles/ui/form13.h"
#include "datafiles/ui/form14.h"
#include "fakes.h"

#include "alarmset/ui/picture_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

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
    EXPECT_EQ(notices.warnings, QStringList({"Wpaper.dat has data of wallpaper"}));
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
