#include "eventlist/bwklistbox.h"
#include "qt_printers.h"

#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(Bwklistbox, InsertionHighlightsAndDeletion) {
    Bwklistbox list;
    list.ShowData("-", "2002/05/02-08:00:00", "b", true);
    list.ShowData("=", "2002/05/01-08:00:00", "a", false);
    list.ShowData("#", "2002/05/03-08:00:00", "c", true);
    list.ShowData("~", "2002/05/02-08:00:00", "b2", true);
    EXPECT_EQ(list.lstMain.count(), 4);
    EXPECT_TRUE(list.lstMain.item(1).endsWith("b2"));
    EXPECT_TRUE(list.lstMain.isSelected(3));
    EXPECT_EQ(list.MultiSelectedItem(), 3);
    list.MultiDelete(); // the first highlighted row, index 1
    EXPECT_EQ(list.MultiSelectedItem(), 2);
    EXPECT_TRUE(list.lstMain.item(1).endsWith("b"));
    // Cracking needs a current row; without one the fields keep their values.
    list.lstMain.setCurrent(2);
    list.CrackAlarmEvent();
    EXPECT_EQ(list.MessageIs(), "c");
    list.lstMain.setCurrent(-1);
    list.CrackAlarmEvent();
    EXPECT_EQ(list.DateIs(), "2002/05/03");
}

TEST(Bwklistbox, BulkLoadMatchesOneByOneInsertion) {
    Bwklistbox single, bulk;
    QRandomGenerator rng(7);
    bulk.beginBulk();
    for (int i = 0; i < 500; ++i) {
        const QString dt =
            QStringLiteral("2002/05/%1-0%2:00:00").arg(rng.bounded(1, 4), 2, 10, QLatin1Char('0')).arg(rng.bounded(3));
        const QString msg = QString::number(i);
        single.ShowData("-", dt, msg, i % 7 == 0);
        bulk.ShowData("-", dt, msg, i % 7 == 0);
    }
    bulk.endBulk();
    EXPECT_EQ(bulk.lstMain.items(), single.lstMain.items());
    for (int r = 0; r < single.lstMain.count(); ++r)
        ASSERT_EQ(bulk.lstMain.isSelected(r), single.lstMain.isSelected(r)) << r;
}

TEST(Bwklistbox, RewriteIsByteExactAndSortedWithMarksTurnedIntoWords) {
    QTemporaryDir dir;
    Bwklistbox list;
    list.ShowData("x", "2002/05/01-08:30:00", "", false);
    list.ShowData("=", "2002/05/01-08:30:00", "Dentist", false);
    list.ShowData("~", "2001/01/01-00:00:00", "a\r\nb", false);
    FileError error;
    const QString path = dir.path() + "/future.dat";
    ASSERT_TRUE(list.SaveAllEventsToDisk(path, error));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("\"a\r\nb2001/01/01repe00:00:00\"\r\n"
                                      "\"Dentist2002/05/01twic08:30:00\"\r\n"
                                      "\"2002/05/01once08:30:00\"\r\n"));
    f.close();
    list.ClearListView();
    ASSERT_TRUE(list.SaveAllEventsToDisk(path, error));
    EXPECT_EQ(QFileInfo(path).size(), 0);
}
