#pragma once
// What a Torvik plug-in exports. A plug-in is a shared library named
// "<stem>.dll" in the "plugins" folder beside Torvik; its class is
// "<stem>.TKPLUGIN", entered in Torvik's registry by the Plugin Medic.
// Torvik loads it into its own process and looks these three functions up
// by name, with C linkage, so any language and compiler will do:
//
//   TKPlugin_name  the name shown in the list, UTF-8, owned by the plug-in
//   TKPlugin_des   the description shown beside it, the same way
//   showmainform   shows the plug-in's window; 0 when it did, anything else
//                  tells Torvik it failed. Torvik is a Qt 6 Widgets program:
//                  a plug-in built against the same Qt may open its own
//                  top-level windows, which must outlive the call (Torvik
//                  keeps nothing of the plug-in once it returns). The
//                  Plugins form it is called from is modal, so a window that
//                  takes input must be modal as well.
//
// A library lacking TKPlugin_name or TKPlugin_des is not listed; one that
// crashes takes Torvik with it, as it runs in Torvik's process.
#ifdef __cplusplus
extern "C" {
#endif

const char* TKPlugin_name(void);
const char* TKPlugin_des(void);
int showmainform(void);

#ifdef __cplusplus
}
#endif
