// chat.txt over plain bytes: which lines the reader takes, a table a rule,
// the bytes the writer makes, and files damaged at random.
#include "chat/ChatFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace chat;

namespace {

// Every marker with one saying "sN" behind it, CR LF ends.
QByteArray allSections(const QByteArray& behindGreeting = "")
{
    QByteArray out = "# head\r\n";
    for (int s = 0; s < kSectionCount; ++s)
        out += sectionMarkers()[s] + "\r\n" + (s == 0 ? behindGreeting : QByteArray()) + "s" +
               QByteArray::number(s) + "\r\n";
    return out;
}

} // namespace

TEST(ChatFile, WhatTheReaderTakes)
{
    const QByteArray longLine(10000, 'x');
    const struct Row {
        QByteArray file;
        QStringList greetings; // of the first section; "!" for a refused file
    } rows[] = {
        {allSections(), {"s0"}},
        {allSections("a\r\n\"quoted\r\nb\r\n"), {"a", "b", "s0"}},
        {allSections("a\r\n\r\nhidden\r\n"), {"a"}},
        {allSections("a\r\n leading blank\r\nhidden\r\n"), {"a"}},
        {allSections("a\r\n# note\r\nhidden\r\n"), {"a"}},
        {allSections("%'s two %s %s\r\n"), {"%'s two %s %s", "s0"}},
        {allSections(longLine + "\r\n"), {QString::fromLatin1(longLine), "s0"}},
        {allSections("caf\xE9\r\n"), {QStringLiteral("caf\u00E9"), "s0"}},
        {allSections().replace("\r\n", "\n"), {"s0"}},
        {allSections().replace("-- Come-backs", "-- Comebacks"), {"!"}},
        {allSections().replace("-- Greetings", "-- greetings"), {"!"}},
    };
    for (const Row& row : rows) {
        const std::optional<ChatSections> read = readChat(row.file);
        if (row.greetings == QStringList{"!"}) {
            EXPECT_FALSE(read) << row.file.left(60).constData();
            continue;
        }
        ASSERT_TRUE(read) << row.file.left(60).constData();
        EXPECT_EQ(read->sayings[0], row.greetings) << row.file.left(60).constData();
        EXPECT_EQ(read->sayings[7], QStringList{"s7"});
    }
}

TEST(ChatFile, TheWriterEndsEveryLineWithCrLfInLatin1)
{
    ChatSections sections;
    sections.sayings[7] = {"caf\u00E9 %s"};
    EXPECT_TRUE(writeChat("# one\n#", sections).startsWith("# one\r\n#\r\n-- Greetings\r\n-- Insults (general)\r\n"));
    EXPECT_TRUE(writeChat("#", sections).endsWith("-- TEAMPLAY: Let's Group!\r\ncaf\xE9 %s\r\n"));
    EXPECT_EQ(explanationOf("# 1. Greetings\n#    Said\n#"), "1. Greetings\n   Said\n");
}

TEST(ChatFile, DamagedFilesNeverCrashAndWhatIsReadIsWrittenBack)
{
    std::mt19937 random(13);
    const QByteArray good = allSections("a\r\nb\r\n");
    for (int round = 0; round < 3000; ++round) {
        QByteArray file = good;
        for (int n = int(random() % 8); n >= 0; --n)
            file[int(random() % file.size())] = "\r\n #\"-x\0"[random() % 8];
        if (round % 3 == 0)
            std::generate(file.begin(), file.end(), [&random] { return char(random()); });
        if (const std::optional<ChatSections> read = readChat(file)) {
            EXPECT_EQ(readChat(writeChat("# head", *read)), read);
        }
    }
}
