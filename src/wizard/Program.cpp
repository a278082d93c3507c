#include "wizard/Program.h"

#include "media/Graphics.h"
#include "platform/Process.h"
#include "wizard/Globals.h"
#include "wizard/SplashForm.h"

#include <QApplication>
#include <QWidget>

namespace torvik {
namespace {
bool ended = false;
}

void startProgram()
{
    auto* splash = new SplashForm;
    if (splash->loaded())
        splash->show();
}

void ExitProgram(bool force)
{
    if (ended)
        return;
    ended = true;
    (void)force; // every caller forces the end
    // Forms are closed after the running handler returns, never under it.
    const QWidgetList forms = QApplication::topLevelWidgets();
    for (qsizetype i = forms.size() - 1; i >= 0; --i) {
        forms[i]->hide();
        forms[i]->deleteLater();
    }
    delete GraphicsObject;
    GraphicsObject = nullptr;
    platform::endProcess(0);
}

bool programEnded() { return ended; }

} // namespace torvik
