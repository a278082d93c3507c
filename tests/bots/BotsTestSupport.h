#pragma once
// A generated game install with the bot store pointed at it, boxes recorded
// and the restore offer counted, for the tests of the bots file loads.
#include "bots/BotStore.h"
#include "demo/DemoInstall.h"
#include "harness/Doubles.h"
#include "platform/Files.h"
#include "wizard/Globals.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace botstest {

class DemoStore : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(tmp.isValid());
        reset();
        torvik::RestoreBotsCfgHook = [this] { ++restores; };
    }

    void TearDown() override
    {
        reset();
        torvik::RestoreBotsCfgHook = {};
    }

    static void reset()
    {
        torvik::clearBotStore();
        torvik::BotFileErrorFlag = 0;
        torvik::ShowBotProgress = 0;
        torvik::BotProgressHook = {};
    }

    // A fresh demo install in its own folder, and the locations set to it.
    QString useDemo(bool mixedCase = false)
    {
        const QString root = tmp.path() + QStringLiteral("/q2-%1").arg(++installs);
        demo::DemoOptions options;
        options.mixedCase = mixedCase;
        QString error;
        EXPECT_TRUE(demo::createDemoInstall(root, &error, options)) << error.toStdString();
        torvik::Quake2Location = demo::gameExecutable(root);
        torvik::GorvanLocation = platform::joinPath(demo::modFolder(root), QStringLiteral("gamex86.dll"));
        return root;
    }

    // Replaces the bots file of the current install, under its own spelling.
    static void writeBotsFile(const QByteArray& bytes)
    {
        ASSERT_TRUE(platform::writeFile(torvik::botsFilePath(), bytes));
    }

    static QByteArray botsFileBytes()
    {
        QByteArray bytes;
        EXPECT_TRUE(platform::readFile(torvik::botsFilePath(), bytes));
        return bytes;
    }

    QStringList messages() const
    {
        QStringList out;
        for (const harness::BoxRecord& box : dialogs.boxes)
            out << box.text;
        return out;
    }

    static QStringList names(const std::vector<int>& rows)
    {
        QStringList out;
        for (int row : rows)
            out << torvik::Bots.at(size_t(row)).Name;
        return out;
    }

    QTemporaryDir tmp;
    harness::RecordingDialogs dialogs;
    int restores = 0;
    int installs = 0;
};

} // namespace botstest
