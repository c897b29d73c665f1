#include "message/message_text.h"
#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace message_text;

TEST(MessageText, LineBreaksAndTheLengthLimit) {
    EXPECT_EQ(stored(QStringLiteral("a\nb") + QChar::ParagraphSeparator), "a\r\nb\r\n");
    EXPECT_EQ(shown("a\r\nb"), "a\nb");
    const QString full(kMaxLength, 'a');
    EXPECT_EQ(fitting(full, u"", "b"), "");
    EXPECT_EQ(fitting(full, u"aa", "\"xyz"), "'x"); // a selection makes room; quotes turn
    const QString oneShort(kMaxLength - 1, 'a');
    EXPECT_EQ(fitting(oneShort, u"", "\n"), ""); // a line break counts as CR LF
    EXPECT_EQ(fitting(oneShort, u"\n", "\n\n"), "\n");
}

TEST(MessageText, TextSizeSteps) {
    for (double refused : {6.0, 5.0}) {
        double size = refused;
        EXPECT_FALSE(smaller(size));
        EXPECT_EQ(size, refused);
    }
    double size = 16;
    EXPECT_TRUE(larger(size));
    EXPECT_EQ(size, 17);
    size = 16.8;
    EXPECT_FALSE(larger(size));
}
