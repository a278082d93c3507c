#include "pages/StartDialogPage.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/ProgramContext.h"

namespace pages {

StartDialogPage::StartDialogPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    connect(ui.Label42, &platform::ClickLabel::clicked, this, &StartDialogPage::startUpdateWizard);
    const std::pair<platform::ClickLabel*, const char*> links[] = {
        {ui.Label10, "mailto:torvik@torvik.invalid"},
        {ui.Label32, "mailto:gorvan@gorvan.invalid"},
        {ui.Label11, "https://torvik.invalid/"},
        {ui.Label12, "https://gorvan.invalid/"},
    };
    for (const auto& [label, target] : links) {
        const QString where = QString::fromLatin1(target);
        connect(label, &platform::ClickLabel::clicked, this, [where] { platform::openWithDesktop(where); });
    }
}

// The update tool replaces Torvik's own files, so Torvik makes way for it.
void StartDialogPage::startUpdateWizard()
{
    const QString programFolder = platform::programContext.programFolder;
    const QString tool = platform::resolvePath(platform::joinPath(programFolder, QStringLiteral("zprw.exe")));
    if (tool.isEmpty() || !platform::fileExists(tool)) {
        platform::msgBox(QStringLiteral("Couldn't start the Zeprin Update Wizard!"));
        return;
    }
    if (!platform::launcher().start(platform::executableStart(tool, {}, programFolder))) {
        platform::msgBox(QStringLiteral("Couldn't start the Zeprin Update Wizard!"));
        return;
    }
    platform::exitProgram();
}

} // namespace pages
