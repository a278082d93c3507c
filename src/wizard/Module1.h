#pragma once
// Shared helpers of the wizard: the program's own folders, the shell
// helpers and the repair of the picture component.
#include <QString>

namespace torvik {

// Each makes its folder below the program folder when it is missing. False
// after telling the user and ending the program, when that can't be done.
bool CheckMapInfoFolder();
bool CheckBackupFolder();
bool CheckSavedFolder();

// The program's folders as spelled on disk.
QString MapInfoFolder();
QString BackupFolder();
QString SavedFolder();

// Puts the installed copy of the picture component back in the program folder.
bool RepairGraphicsComponent();

// Opens a document, address or program with the desktop.
bool OpenWithShell(const QString& target);

} // namespace torvik
