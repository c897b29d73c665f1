#include "eventlist/ui/bwklistbox_view.h"
#include "fakes.h"
#include "platform/ui/window_twips.h"

#include <QApplication>
#include <QListView>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace {

struct BwklistboxViewTest : ::testing::Test, EngineFixture {
    QWidget host;
    BwklistboxView* view = nullptr;
    QList<QPoint> popups;

    void SetUp() override {
        for (int day = 1; day <= 5; ++day)
            ctx.Bwklistbox1.ShowData("-", QStringLiteral("2002/05/0%1-08:30:00").arg(day), "Dentist\r\nat ten", false);
        view = new BwklistboxView(ctx, &host);
        view->setGeometry(window_twips::px(view, 120), window_twips::px(view, 2568), window_twips::px(view, 5292),
                          window_twips::px(view, 1716));
        view->showPopupMenu = [this](QPoint at) { popups.append(at); };
        host.resize(800, 600);
        host.show();
    }

    void press(Qt::MouseButton button, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPoint at = view->lstMain->visualRect(ctx.Bwklistbox1.lstMain.index(row)).center();
        const QPoint global = view->lstMain->viewport()->mapToGlobal(at);
        QMouseEvent down(QEvent::MouseButtonPress, at, global, button, button, modifiers);
        QApplication::sendEvent(view->lstMain->viewport(), &down);
        QMouseEvent up(QEvent::MouseButtonRelease, at, global, button, Qt::NoButton, modifiers);
        QApplication::sendEvent(view->lstMain->viewport(), &up);
    }
};

} // namespace

TEST_F(BwklistboxViewTest, RightPressOpensThePopupOnlyWithACurrentRowAndMovesNothing) {
    press(Qt::RightButton, 1);
    EXPECT_TRUE(popups.isEmpty());
    EXPECT_EQ(ctx.Bwklistbox1.SelectedItem(), -1);
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 0);

    press(Qt::LeftButton, 1);
    press(Qt::LeftButton, 3, Qt::ControlModifier);
    EXPECT_EQ(ctx.Bwklistbox1.SelectedItem(), 3);
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 2);

    press(Qt::RightButton, 4);
    ASSERT_EQ(popups.size(), 1);
    EXPECT_EQ(popups[0], view->lstMain->viewport()->mapToGlobal(
                             view->lstMain->visualRect(ctx.Bwklistbox1.lstMain.index(4)).center()));
    EXPECT_EQ(ctx.Bwklistbox1.SelectedItem(), 3);
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 2);
    EXPECT_FALSE(ctx.Bwklistbox1.lstMain.isSelected(4));
}

TEST_F(BwklistboxViewTest, RowsAreOneLineOfArialWhateverTheWindowHandsDown) {
    ctx.Bwklistbox1.ClearListView();
    ctx.Bwklistbox1.ShowData("-", "2002/05/01-08:30:00", "", false);
    ctx.Bwklistbox1.ShowData("-", "2002/05/02-08:30:00", "one\r\ntwo\r\nthree", false);
    QStyleOptionViewItem option;
    option.initFrom(view->lstMain);
    option.font = view->lstMain->font();
    QAbstractItemDelegate* rows = view->lstMain->itemDelegate();
    const int plain = rows->sizeHint(option, ctx.Bwklistbox1.lstMain.index(0)).height();
    EXPECT_EQ(rows->sizeHint(option, ctx.Bwklistbox1.lstMain.index(1)).height(), plain);

    view->lstMain->setFont(QFont("Times New Roman", 12));
    EXPECT_EQ(view->lstMain->font(), QFont("Arial", 9));
}
