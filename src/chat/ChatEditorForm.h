#pragma once
// The bot chat editor: the eight sections of chat.txt as lists, each with
// Add, Edit and Delete, and a save that rewrites the whole file.
#include "ui_ChatEditorForm.h"

#include <QDialog>

#include <array>

class QListWidget;
class QPushButton;

namespace platform {
class Timer;
}

namespace chat {

class ChatEditorForm : public QDialog {
    Q_OBJECT
public:
    explicit ChatEditorForm(QWidget* parent = nullptr);

    Ui::ChatEditorForm ui;
    platform::Timer* Timer1 = nullptr;

private:
    void loadChatFile();
    void saveChatFile();
    // A load or save that can't go on: the rescue is offered and the form closes.
    void giveUpOnFile();
    void addSaying(int section);
    void editSaying(int section);
    void deleteSaying(int section);

    std::array<QListWidget*, 8> lists_{};
};

} // namespace chat
