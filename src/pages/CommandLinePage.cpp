#include "pages/CommandLinePage.h"

namespace pages {

void CommandLinePage::showCommand(const QString& command)
{
    QString text = command;
    ui.CmdLine->setPlainText(text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

QString CommandLinePage::command() const
{
    QString text = ui.CmdLine->toPlainText();
    return text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

} // namespace pages
