#include "platform/cp1252.h"
#include "platform/field_reader.h"
#include "platform/numeric.h"
#include "platform/twips.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

namespace {
QStringList readAll(const QString& text) {
    FieldReader reader(text);
    QStringList fields;
    while (!reader.atEnd())
        fields.append(reader.next());
    return fields;
}
} // namespace

TEST(FieldReader, QuotedRecordsWithLineBreaksCommasAndLooseSyntax) {
    EXPECT_EQ(readAll(QStringLiteral("\"a\"\r\n\"b\"\r\n")), QStringList({"a", "b"}));
    // A quoted field keeps line breaks and commas; the rest up to the line end is dropped.
    EXPECT_EQ(readAll(QStringLiteral("\"line1\r\nline2, more\"junk\r\n\"c\"\r\n")),
              QStringList({"line1\r\nline2, more", "c"}));
    // Leading blanks and tabs are skipped; a comma outside quotes splits; unquoted runs to comma or line end.
    EXPECT_EQ(readAll(QStringLiteral(" \t\"q\" , x\r\nplain,second\nlast")),
              QStringList({"q", "x", "plain", "second", "last"}));
    // A quote never closed runs to the end of the text.
    EXPECT_EQ(readAll(QStringLiteral("\"open to the end")), QStringList({"open to the end"}));
    EXPECT_TRUE(readAll(QString()).isEmpty());
}

TEST(Cp1252, EveryByteRoundTripsAndForeignCharactersBecomeQuestionMarks) {
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(static_cast<char>(b));
    EXPECT_EQ(toCp1252(fromCp1252(all)), all);
    EXPECT_EQ(fromCp1252(QByteArray("\x80\x93\xe9", 3)), QString::fromUtf8("€“é"));
    EXPECT_EQ(toCp1252(QString::fromUtf8("Zoë €5 日本")), QByteArray("Zo\xeb \x80"
                                                                     "5 ??"));
}

TEST(Cp1252, FitNamesEachCharacterTheCodePageCannotHoldAndCountsCharacters) {
    const std::tuple<QString, qsizetype, QString> cases[] = {
        {QString::fromUtf8("Zoë €5 “x” ") + QChar(0x81) + "\r\n", 14, ""},
        {QString::fromUtf8("emoji 😀 end 😀"), 13, QString::fromUtf8("😀")}, // a pair is one character
        {QString::fromUtf8("会议 at 会"), 7, QString::fromUtf8("会 议")},
        {QString(QChar(0x85)) + QChar(0x9F), 2, "U+0085 U+009F"}, // controls the code page gives other bytes
        {QString(QChar(0xD83D)) + 'a', 2, "U+D83D"},              // a lone surrogate
    };
    for (const auto& [text, bytes, unheld] : cases) {
        const Cp1252Fit fit = cp1252Fit(text);
        EXPECT_EQ(fit.bytes, bytes) << qPrintable(text);
        EXPECT_EQ(unheldNames(fit.unheld), unheld) << qPrintable(text);
        // What fits is written byte for byte, one a character.
        if (fit.fits())
            EXPECT_EQ(toCp1252(text).size(), bytes);
    }
}

// Numbers in messages are seen in the messages themselves ("Error #  75", "Data  1").
TEST(Numeric, LeadingDigitsAndRounding) {
    // "12:30": the character after 9 is no digit.
    for (auto [text, value] : {std::pair{"07", 7}, {"12ab", 12}, {"x12", 0}, {"12:30", 12}, {"", 0}})
        EXPECT_EQ(leadingDigitsValue(QString::fromLatin1(text)), value) << text;
    for (auto [x, rounded] : {std::pair{2.5, 2}, {3.5, 4}, {-2.5, -2}, {596.64, 597}})
        EXPECT_EQ(roundHalfEven(x), rounded) << x;
}

TEST(Twips, DensitiesAndConversions) {
    EXPECT_EQ(twips::logPixels(96, 1.0), 96);
    EXPECT_EQ(twips::logPixels(96, 1.25), 120);
    EXPECT_EQ(twips::logPixels(72, 2.0), 144);
    EXPECT_EQ(twips::toPixels(4476, 15), 298); // 298.4
    EXPECT_EQ(twips::toPixels(2325, 15), 155); // exact
    EXPECT_EQ(twips::toPixels(30, 12), 2);     // 2.5 rounds to even
    EXPECT_EQ(twips::toPixels(42, 12), 4);     // 3.5 rounds to even: up
}
