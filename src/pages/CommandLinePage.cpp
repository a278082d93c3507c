#include "pages/CommandLinePage.h"

#include "command/Composer.h"
#include "pages/EngineLimits.h"
#include "pages/TextBoxes.h"

namespace pages {

CommandLinePage::CommandLinePage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    ui.BotLimitWarning->setVisible(false);
    keepLatin1Typing(ui.CmdLine);
    // An expert who takes bots out of the command sees the warning go.
    connect(ui.CmdLine, &QPlainTextEdit::textChanged, this, &CommandLinePage::showBotLimitWarning);
}

void CommandLinePage::showCommand(const QString& command, bool dedicated)
{
    dedicated_ = dedicated;
    QString text = command;
    ui.CmdLine->setPlainText(text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

QString CommandLinePage::command() const
{
    QString text = ui.CmdLine->toPlainText();
    return text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

void CommandLinePage::showBotLimitWarning()
{
    const torvik::SplitCommand split = torvik::splitCommandLine(command(), dedicated_);
    const QString warning =
        split.ok ? botLossWarning(botsTheGameLoses(torvik::configFileBytes(split.config))) : QString();
    ui.BotLimitWarning->setText(warning);
    ui.BotLimitWarning->setVisible(!warning.isEmpty());
}

} // namespace pages
