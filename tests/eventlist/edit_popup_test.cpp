#include "eventlist/popup_menu.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct PopupTest : ::testing::Test, EngineFixture {
    PopupTest() {
        ctx.touchForm4();
        for (int day = 2; day <= 7; ++day)
            ctx.Bwklistbox1.ShowData("=", QStringLiteral("2002/05/0%1-08:00:00").arg(day), "m", false);
        writeFile("future.dat", "\"stale\"\r\n");
    }
    ListModel& lstMain() { return ctx.Bwklistbox1.lstMain; }
};

} // namespace

TEST_F(PopupTest, EditWantsExactlyOneHighlightedRowAndShowsTheCurrentOne) {
    QStringList shown;
    const ShowEditEventFn show = [&](const QString& mark, const QString& date, const QString& time,
                                     const QString& message) {
        shown = {mark, date, time, message};
    };

    // A Ctrl click took the highlight away from the current row.
    lstMain().setCurrent(2);
    PopupEditClick(ctx, show);
    EXPECT_EQ(notices.warnings, QStringList({"Select one alarm event first"}));

    lstMain().setSelected(0, true);
    lstMain().setSelected(4, true);
    PopupEditClick(ctx, show);
    EXPECT_EQ(notices.warnings.last(), "More than one alarm events highlighted");
    EXPECT_EQ(notices.beeps, 2);
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 2);

    // One highlighted row elsewhere: the fields come from the current row all the same.
    lstMain().setSelected(0, false);
    PopupEditClick(ctx, show);
    EXPECT_EQ(shown, QStringList({"=", "2002/05/04", "08:00:00", "m"}));
    EXPECT_EQ(notices.warnings.size(), 2);
}

TEST_F(PopupTest, DeleteRemovesEveryHighlightedRowAndRewritesOnce) {
    // Nothing highlighted: nothing at all happens, the file included.
    lstMain().setCurrent(1);
    PopupDeleteClick(ctx);
    EXPECT_EQ(lstMain().count(), 6);
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"stale\"\r\n"));

    for (int row : {0, 2, 3, 5})
        lstMain().setSelected(row, true);
    PopupDeleteClick(ctx);
    EXPECT_EQ(lstMain().items(),
              QStringList({"      =    2002/05/03-08:00:00        m", "      =    2002/05/06-08:00:00        m"}));
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"m2002/05/03twic08:00:00\"\r\n\"m2002/05/06twic08:00:00\"\r\n"));
    EXPECT_TRUE(notices.warnings.isEmpty());

    // The last rows gone leave an empty file in place.
    lstMain().setSelected(0, true);
    lstMain().setSelected(1, true);
    PopupDeleteClick(ctx);
    EXPECT_TRUE(QFileInfo::exists(path("future.dat")));
    EXPECT_TRUE(readFile("future.dat").isEmpty());
}
