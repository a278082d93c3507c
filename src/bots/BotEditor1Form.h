#pragma once
// One bot of the bot editor: name, ping, model and skin with their pictures,
// and the six attributes on sliders with theirs. Done puts the bot into the
// editor's list; nothing here touches the file.
#include "ui_BotEditor1Form.h"

#include <QDialog>

class QTreeWidget;

namespace torvik {

class BotEditor1Form : public QDialog {
    Q_OBJECT
public:
    // The list Done adds to: the bot editor's.
    BotEditor1Form(QTreeWidget* botList, QWidget* parent = nullptr);

    Ui::BotEditor1Form ui;

    // The defaults of a new bot.
    void startAdding();
    // The values of the list's row.
    void startEditing(int row);

private:
    void getModels();
    void getSkins();
    void showSkinPictures();
    void dropBlanksFromName(const QString& text);
    void showAttributePictures();
    void randomAttributes();
    void viewModel();
    void takeBot();

    QScrollBar* slider(int i) const;

    QTreeWidget* botList_;
};

} // namespace torvik
