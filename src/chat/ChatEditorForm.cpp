#include "chat/ChatEditorForm.h"

#include "backup/Backup.h"
#include "chat/ChatFile.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Timer.h"

namespace chat {

namespace {

QString chatPath() { return backup::userFilePath(backup::Kind::Chat); }

} // namespace

ChatEditorForm::ChatEditorForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    ui.Text9->setPlainText(explanationOf(ui.Text1->toPlainText()));
    lists_ = {ui.List1, ui.List2, ui.List3, ui.List4, ui.List5, ui.List6, ui.List7, ui.List8};

    // Delete, Edit and Add of each section, in the order of the lists.
    const std::array<std::array<QPushButton*, 3>, kSectionCount> buttons = {{
        {ui.Command1, ui.Command2, ui.Command3},
        {ui.Command4, ui.Command5, ui.Command6},
        {ui.Command7, ui.Command8, ui.Command10},
        {ui.Command11, ui.Command12, ui.Command13},
        {ui.Command14, ui.Command15, ui.Command16},
        {ui.Command17, ui.Command18, ui.Command19},
        {ui.Command20, ui.Command21, ui.Command22},
        {ui.Command23, ui.Command24, ui.Command25},
    }};
    for (int s = 0; s < kSectionCount; ++s) {
        connect(buttons[s][0], &QPushButton::clicked, this, [this, s] { deleteSaying(s); });
        connect(buttons[s][1], &QPushButton::clicked, this, [this, s] { editSaying(s); });
        connect(buttons[s][2], &QPushButton::clicked, this, [this, s] { addSaying(s); });
    }
    connect(ui.Command9, &QPushButton::clicked, this, &ChatEditorForm::saveChatFile);
    connect(ui.Main_Cancel, &QPushButton::clicked, this, &QDialog::reject);

    // The file is read once the form is on screen, so that the rescue a bad
    // file leads to opens over the editor rather than before it.
    Timer1 = new platform::Timer(this, 1, true);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    connect(Timer1, &platform::Timer::timeout, this, &ChatEditorForm::loadChatFile);
}

void ChatEditorForm::giveUpOnFile()
{
    platform::beep();
    platform::msgBox(QStringLiteral("Error! Chat.txt file couldn't be loaded."));
    if (backup::RestoreChatHook)
        backup::RestoreChatHook();
    reject();
}

void ChatEditorForm::loadChatFile()
{
    Timer1->setEnabled(false);
    QByteArray bytes;
    std::optional<ChatSections> sections;
    if (platform::fileExists(chatPath()) && platform::readFile(chatPath(), bytes))
        sections = readChat(bytes);
    if (!sections) {
        giveUpOnFile();
        return;
    }
    for (int s = 0; s < kSectionCount; ++s) {
        lists_[s]->clear();
        lists_[s]->addItems(sections->sayings[s]);
    }
}

void ChatEditorForm::saveChatFile()
{
    if (!platform::fileExists(chatPath())) {
        giveUpOnFile();
        return;
    }
    ChatSections sections;
    for (int s = 0; s < kSectionCount; ++s)
        for (int row = 0; row < lists_[s]->count(); ++row)
            sections.sayings[s].append(lists_[s]->item(row)->text());
    // A refused write leaves the old file whole, and the edits stay on the
    // form for another try or a cancel.
    if (!platform::writeFile(chatPath(), writeChat(ui.Text1->toPlainText(), sections))) {
        platform::beep();
        platform::msgBox(QStringLiteral("Error! Something went wrong writing chat.txt file."));
        return;
    }
    platform::msgBox(QStringLiteral("Chat.txt file has been updated."));
    accept();
}

void ChatEditorForm::addSaying(int section)
{
    const QString saying = platform::inputBox(QStringLiteral("New saying (%s can be used for strings)"),
                                              QStringLiteral("Add New Saying"));
    if (!saying.isEmpty())
        lists_[section]->addItem(saying);
}

void ChatEditorForm::editSaying(int section)
{
    const QList<QListWidgetItem*> rows = lists_[section]->selectedItems();
    if (rows.isEmpty()) {
        platform::msgBox(QStringLiteral("Nothing to edit!"));
        return;
    }
    const QString saying = platform::inputBox(QStringLiteral("Edit Saying (%s can be used for strings)"),
                                              QStringLiteral("Edit Saying"), rows.first()->text());
    if (!saying.isEmpty())
        rows.first()->setText(saying);
}

void ChatEditorForm::deleteSaying(int section)
{
    const QList<QListWidgetItem*> rows = lists_[section]->selectedItems();
    if (rows.isEmpty()) {
        platform::msgBox(QStringLiteral("Nothing to delete!"));
        return;
    }
    delete lists_[section]->takeItem(lists_[section]->row(rows.first()));
}

} // namespace chat
