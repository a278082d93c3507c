#pragma once
// Registers every library of the plugins folder, so that the plug-ins that
// weren't listed are, and lists them again on the Plugins form.
#include "ui_PluginMedicForm.h"

#include <QDialog>

namespace plugins {

class PluginsForm;

class PluginMedicForm : public QDialog {
    Q_OBJECT
public:
    PluginMedicForm(PluginsForm* plugins, QWidget* parent = nullptr);
    Ui::PluginMedicForm ui;

private:
    void registerAll();

    PluginsForm* plugins_;
};

} // namespace plugins
