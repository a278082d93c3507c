#include "plugins/PluginsForm.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "plugins/PluginHost.h"
#include "plugins/PluginMedicForm.h"

namespace plugins {
namespace {

// The model viewer's library shares the folder and is no plug-in.
bool isGlide(const QString& fileName) { return fileName.toUpper() == QLatin1String("GLIDE.DLL"); }

} // namespace

PluginsForm::PluginsForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    ui.ListView1->setColumnWidth(0, 100);
    ui.ListView1->setColumnWidth(1, 413);
    ui.File1->addItems(platform::listFiles(pluginFolder(), {QStringLiteral("*.dll")}));
    connect(ui.ListView1, &QTreeWidget::itemClicked, this, &PluginsForm::rememberClickedRow);
    connect(ui.Command2, &QPushButton::clicked, this, &PluginsForm::runChosenPlugin);
    connect(ui.Command3, &QPushButton::clicked, this, &PluginsForm::openMedic);
    connect(ui.Command1, &QPushButton::clicked, this, &QDialog::reject);
    ListPlugins();
}

// List1 keeps its rows across a listing after the Medic, so a row may then
// lead to another library than it shows; that is how the list has always
// behaved. Run follows whether anything answered this time.
void PluginsForm::ListPlugins()
{
    if (ui.File1->count() == 0) {
        ui.Command2->setEnabled(false);
        return;
    }
    PluginFound = 0;
    for (int i = 0; i < ui.File1->count(); ++i) {
        const QString name = ui.File1->item(i)->text();
        if (!isGlide(name))
            verifyPlugin(name);
    }
    ui.Command2->setEnabled(PluginFound == 1);
}

// A library that isn't registered, doesn't load or lacks a member is simply
// not listed: that is the sign that the Medic may help.
void PluginsForm::verifyPlugin(const QString& fileName)
{
    const std::optional<Component> component = Component::create(pluginClassName(fileName));
    if (!component)
        return;
    const std::optional<QString> name = component->text("TKPlugin_name");
    if (!name)
        return;
    const std::optional<QString> description = component->text("TKPlugin_des");
    if (!description)
        return;
    ui.ListView1->addTopLevelItem(new QTreeWidgetItem(QStringList{*name, *description}));
    PluginFound = 1;
    ui.List1->addItem(fileName);
}

void PluginsForm::rememberClickedRow()
{
    SelectedPlugin = ui.ListView1->indexOfTopLevelItem(ui.ListView1->currentItem()) + 1;
}

void PluginsForm::runChosenPlugin()
{
    const int row = SelectedPlugin - 1;
    if (row < 0 || row >= ui.List1->count()) {
        platform::msgBox(QStringLiteral("No plugin selected!"));
        return;
    }
    PluginFile = ui.List1->item(row)->text();
    PluginClass = pluginClassName(PluginFile);
    RunPlugin();
}

void PluginsForm::RunPlugin()
{
    const std::optional<Component> component = Component::create(PluginClass);
    if (component && component->call("showmainform"))
        return;
    if (platform::msgBox(QStringLiteral("Couldn't run plugin! Want to try registering it?"), platform::Buttons::YesNo,
                         platform::Icon::Critical, QStringLiteral("Couldn't run plugin!"))
        != platform::Answer::Yes)
        return;
    platform::msgBox(QStringLiteral("If worked...You will receive a message saying Dllregisterserver successful."));
    // The registration reports itself, as the message promised.
    const QString path = platform::resolvePath(platform::joinPath(pluginFolder(), PluginFile));
    switch (registerLibrary(path.isEmpty() ? platform::joinPath(pluginFolder(), PluginFile) : path)) {
    case Registration::Done:
        platform::msgBox(QStringLiteral("DllRegisterServer in %1 succeeded.").arg(PluginFile));
        break;
    case Registration::NotLoaded:
        platform::msgBox(QStringLiteral("LoadLibrary(\"%1\") failed.").arg(PluginFile), platform::Buttons::Ok,
                         platform::Icon::Critical);
        break;
    case Registration::NoMembers:
        platform::msgBox(QStringLiteral("%1 was loaded, but it holds no Torvik plugin.").arg(PluginFile),
                         platform::Buttons::Ok, platform::Icon::Critical);
        break;
    case Registration::RegistryUnwritable:
        platform::msgBox(QStringLiteral("DllRegisterServer in %1 failed: the plugin registry can't be written.")
                             .arg(PluginFile),
                         platform::Buttons::Ok, platform::Icon::Critical);
        break;
    }
}

void PluginsForm::openMedic()
{
    PluginMedicForm medic(this, this);
    medic.exec();
}

} // namespace plugins
