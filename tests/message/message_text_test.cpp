#include "message/message_text.h"
#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace message_text;

TEST(MessageText, LineBreaksAreKeptAsCrLfAndCountTwice) {
    EXPECT_EQ(stored("a\nb"), "a\r\nb");
    EXPECT_EQ(stored(QStringLiteral("a") + QChar::ParagraphSeparator + "b"), "a\r\nb");
    EXPECT_EQ(shown("a\r\nb\r\n"), "a\nb\n");
    EXPECT_EQ(length(u"a\nb"), 4);
    EXPECT_EQ(typed(QChar('"')), QChar('\''));
    EXPECT_EQ(typed(QStringLiteral("say \"hi\"")), "say 'hi'");
}

TEST(MessageText, NothingGoesPastSixHundredTwentySix) {
    const QString full(kMaxLength, 'a');
    EXPECT_EQ(fitting(full, u"", "b"), "");
    EXPECT_EQ(fitting(full, u"aa", "\"xyz"), "'x"); // a selection makes room, quotes turn
    const QString oneShort(kMaxLength - 1, 'a');
    EXPECT_EQ(fitting(oneShort, u"", "b"), "b");
    EXPECT_EQ(fitting(oneShort, u"", "\n"), ""); // a line break needs two
    EXPECT_EQ(fitting(oneShort, u"\n", "\n\n"), "\n");
}

TEST(MessageText, TextSizeSteps) {
    double size = 6;
    EXPECT_FALSE(smaller(size));
    size = 5;
    EXPECT_FALSE(smaller(size));
    EXPECT_EQ(size, 5);
    size = 7;
    EXPECT_TRUE(smaller(size));
    EXPECT_EQ(size, 6);
    size = 16;
    EXPECT_TRUE(larger(size));
    EXPECT_EQ(size, 17);
    EXPECT_FALSE(larger(size));
    size = 16.8;
    EXPECT_FALSE(larger(size));
}
