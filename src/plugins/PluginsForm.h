#pragma once
// The plug-ins of the plugins folder that answer for their name and
// description, run on request; the Plugin Medic registers the libraries
// that don't answer yet.
#include "ui_PluginsForm.h"

#include <QDialog>

namespace plugins {

class PluginsForm : public QDialog {
    Q_OBJECT
public:
    explicit PluginsForm(QWidget* parent = nullptr);
    Ui::PluginsForm ui;

    // Fills the list from the folder; the Medic runs it again after its work.
    void ListPlugins();

private:
    void verifyPlugin(const QString& fileName);
    void rememberClickedRow();
    void runChosenPlugin();
    void RunPlugin();
    void openMedic();

    int PluginFound = 0;
    int SelectedPlugin = 0; // 1-based row of ListView1 last clicked, 0 before
    QString PluginClass;
    QString PluginFile;
};

} // namespace plugins
