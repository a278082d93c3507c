#include "plugins/PluginMedicForm.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "plugins/PluginHost.h"
#include "plugins/PluginsForm.h"

namespace plugins {

PluginMedicForm::PluginMedicForm(PluginsForm* plugins, QWidget* parent) : QDialog(parent), plugins_(plugins)
{
    ui.setupUi(this);
    ui.File1->addItems(platform::listFiles(pluginFolder(), {QStringLiteral("*.dll")}));
    if (ui.File1->count() == 0
        || (ui.File1->count() == 1 && ui.File1->item(0)->text().toUpper() == QLatin1String("GLIDE.DLL"))) {
        ui.Command1->setEnabled(false);
        setWindowTitle(QStringLiteral("Plugin Medic - NO PLUGINS AVAILABLE!"));
    }
    connect(ui.Command1, &QPushButton::clicked, this, &PluginMedicForm::registerAll);
    connect(ui.Command3, &QPushButton::clicked, this, &QDialog::reject);
}

// Each library is registered quietly; what didn't take shows in the list
// staying as it was. Only a registry that can't be written stops the Medic.
void PluginMedicForm::registerAll()
{
    const QString folder = pluginFolder();
    for (int i = 0; i < ui.File1->count(); ++i) {
        const QString name = ui.File1->item(i)->text();
        if (name.toUpper() == QLatin1String("GLIDE.DLL"))
            continue;
        if (registerLibrary(platform::joinPath(folder, name)) == Registration::RegistryUnwritable) {
            platform::msgBox(QStringLiteral("Couldn't run Plugin Medic!"), platform::Buttons::Ok,
                             platform::Icon::Critical, QStringLiteral("Error!"));
            reject();
            return;
        }
    }
    platform::msgBox(QStringLiteral("Finished Successfully!"), platform::Buttons::Ok, platform::Icon::Exclamation,
                     QStringLiteral("Finished!"));
    if (plugins_) {
        plugins_->ui.ListView1->clear();
        plugins_->ListPlugins();
    }
    accept();
}

} // namespace plugins
