// The test plug-ins, one build each: WINDOW opens a window, NO_DES lacks its
// description, FAILS reports that its window couldn't be shown.
#include <QWidget>

extern "C" {
const char* TKPlugin_name(void) { return TEST_PLUGIN_NAME; }
#ifndef TEST_PLUGIN_NO_DES
const char* TKPlugin_des(void) { return "A test plug-in"; }
#endif
int showmainform(void)
{
#ifdef TEST_PLUGIN_FAILS
    return 1;
#else
    auto* window = new QWidget;
    window->setObjectName(QStringLiteral("PluginWindow"));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    return 0;
#endif
}
}
