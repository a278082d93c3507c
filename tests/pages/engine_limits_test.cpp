#include "pages/EngineLimits.h"

#include <gtest/gtest.h>

using namespace pages;

namespace {

QByteArray botLine(const char* command, int count, int nameLength)
{
    QByteArray line = command;
    for (int i = 0; i < count; ++i)
        line += ' ' + QByteArray(nameLength - 3, 'b') + QByteArray::number(100 + i);
    return line;
}

TEST(EngineLimits, BotsPastTheLineAndWordLimitsAreCounted)
{
    struct Row {
        QByteArray config;
        int named, lost;
        bool tooLong, tooManyWords, dropped;
    } rows[] = {
        {"\r\nset skill 1\r\n" + botLine("sv bots", 67, 14) + "\r\nmap base1", 67, 0, false, false, false},
        {"\r\n" + botLine("sv bots", 70, 14) + "\r\nmap base1", 70, 3, true, false, false},
        {"\r\n" + botLine("sv redbots", 40, 14) + " \r\n" + botLine("sv bluebots", 70, 14), 110, 3, true, false, false},
        {"\r\n" + botLine("sv bots", 79, 5), 79, 1, false, true, false},
        {"\r\n" + botLine("sv bots", 78, 5), 78, 0, false, false, false},
        {"\r\ncmd join Reds\r\n" + botLine("sv teams", 90, 5), 0, 0, false, false, false},
        {"\r\n" + botLine("sv bots", 3, 5) + "\r\n" + QByteArray(33000, 'x'), 3, 3, false, false, true},
    };
    for (const Row& r : rows) {
        const BotLoss loss = botsTheGameLoses(r.config);
        EXPECT_EQ(loss.named, r.named) << r.config.left(40).constData();
        EXPECT_EQ(loss.lost, r.lost) << r.config.left(40).constData();
        EXPECT_EQ(loss.tooLong, r.tooLong);
        EXPECT_EQ(loss.tooManyWords, r.tooManyWords);
        EXPECT_EQ(loss.fileDropped, r.dropped);
        EXPECT_EQ(botLossWarning(loss).isEmpty(), r.lost == 0);
    }
    EXPECT_EQ(botLossWarning(botsTheGameLoses("\r\n" + botLine("sv bots", 70, 14))),
              QStringLiteral("The game will not get 3 of the 70 bots named here: it reads no more than 1023 "
                             "characters of a line. Choose fewer bots."));
}

} // namespace
