// A plug-in to start from: a window of its own beside Torvik. Build it with
// the same Qt as Torvik, name the library "<stem>.dll", put it in Torvik's
// plugins folder and run the Plugin Medic once.
#include "plugins/TKPluginApi.h"

#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

const char* TKPlugin_name(void) { return "Sample"; }

const char* TKPlugin_des(void) { return "A window of its own: the plug-in to start from."; }

// The window must outlive this call, so it owns itself and goes when closed.
// Torvik's Plugins form is modal: a window that wants the user's input must
// be modal too, or it would wait behind that form.
int showmainform(void)
{
    auto* window = new QDialog;
    window->setModal(true);
    window->setObjectName(QStringLiteral("SamplePlugin"));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(QStringLiteral("Torvik Sample Plugin"));
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(new QLabel(QStringLiteral("Hello from a Torvik plug-in."), window));
    window->show();
    return 0;
}
