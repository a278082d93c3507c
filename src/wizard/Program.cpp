#include "wizard/Program.h"

#include "media/Graphics.h"
#include "platform/Process.h"
#include "platform/ProgramContext.h"
#include "wizard/SplashForm.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace torvik {

void startProgram()
{
    platform::programContext.exitProgram = [] { ExitProgram(true); };
    auto* splash = new SplashForm;
    if (splash->loaded())
        splash->show();
}

void ExitProgram(bool force)
{
    if (platform::programContext.ended)
        return;
    platform::programContext.ended = true;
    (void)force; // every caller forces the end
    for (const auto& unload : std::exchange(platform::programContext.atEnd, {}))
        unload();
    // Forms are closed after the running handler returns, never under it.
    const QWidgetList forms = QApplication::topLevelWidgets();
    for (qsizetype i = forms.size() - 1; i >= 0; --i) {
        forms[i]->hide();
        forms[i]->deleteLater();
    }
    delete media::GraphicsObject;
    media::GraphicsObject = nullptr;
    platform::endProcess(0);
}

bool programEnded() { return platform::programEnded(); }

} // namespace torvik
