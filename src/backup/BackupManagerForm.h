#pragma once
// Named copies of bots.cfg, chat.txt, Script.TK and MapInfo.dat, and the
// factory copies of the first two. Opened with BackupRescueMode 1 or 2 it is
// the rescue screen of a broken bots or chat file: only what can help is
// enabled, and the way out is a restore, which ends the program.
#include "backup/Backup.h"
#include "ui_BackupManagerForm.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace platform {
class Timer;
}

namespace backup {

class BackupManagerForm : public QDialog {
    Q_OBJECT
public:
    explicit BackupManagerForm(QWidget* parent = nullptr);
    Ui::BackupManagerForm ui;
    platform::Timer* Timer1;

protected:
    void reject() override;

private:
    struct FileTab {
        Kind kind;
        int tab;
        QListWidget* list;
        QPushButton* create;
        QPushButton* view;
        QPushButton* remove;
        QPushButton* use;
        QString defaultTitle;
        QString extension;
        QString usedMessage;
    };

    void loadForm();
    void listBackups(const FileTab& tab);
    void followBackupLists();
    void createBackup(const FileTab& tab);
    void viewBackup(const FileTab& tab);
    void deleteBackup(const FileTab& tab);
    void useBackup(const FileTab& tab);
    void viewFactoryCopy();
    void useFactoryCopy();
    void closeManager();

    std::vector<FileTab> tabs_;
};

// Writes the factory copy that RestoreWhat names over the user's file, tells
// the user and ends the program. Any other value does nothing.
void Restore();

} // namespace backup
