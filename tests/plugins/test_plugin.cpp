// Test plug-ins, one build each: a window, no description, or a failing window.
#include <QWidget>

extern "C" {
const char* TKPlugin_name(void) { return TEST_PLUGIN_NAME; }
#ifndef TEST_PLUGIN_NO_DES
const char* TKPlugin_des(void) { return "A test plug-in"; }
#endif
int showmainform(void)
{
    auto* window = new QWidget;
    window->setObjectName(QStringLiteral("PluginWindow"));
    window->setAttribute(Qt::WA_DeleteOnClose);
#ifndef TEST_PLUGIN_FAILS
    window->show();
#endif
    return window->isVisible() ? 0 : 1;
}
}
